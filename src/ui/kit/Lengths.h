#pragma once

#include <QtGlobal>

namespace Style {

/// Logical dots per inch of the primary screen over 96: 2 for a desktop with text twice as large.
qreal scale();

/// A length in points as whole logical pixels of this desktop.
int px(qreal points);

/// A length in points; where pixels are wanted it becomes px(points).
struct Length {
    qreal points;
    operator int() const { return px(points); }
};

inline constexpr Length windowWidth{1180}, windowHeight{840}, windowMinWidth{900}, windowMinHeight{620};
inline constexpr Length hairline{1};
/// Symbols are measured by their square, about 1.15 × the font size they are named with.
inline constexpr qreal symbolPerFont = 1.15;
inline constexpr Length symbolGap{5};
inline constexpr Length menuBarMarginX{8}, menuBarMarginY{3}, menuBarSpacing{4};
inline constexpr Length titleBarHeight{42}, refreshSymbol{18};

inline constexpr Length sidebarMinWidth{220}, sidebarWidth{235}, sidebarMaxWidth{265};
inline constexpr Length sidebarMargin{16}, sidebarSpacing{22}, sidebarTop{18}, sidebarBottom{18};
inline constexpr Length brandImage{36}, brandSpacing{9};
inline constexpr Length sectionSpacing{5}, sectionMarginX{12}, sectionMarginY{10}, sectionCorner{9};
inline constexpr Length sectionSymbol{18}, sectionGap{8};
inline constexpr Length makerSymbol{32}, makerSpacing{10}, makerLineSpacing{3};

inline constexpr Length pageMargin{24}, pageSpacing{22}, pageMaxWidth{1300}, headerSpacing{8};
inline constexpr Length cardMargin{24}, cardSpacing{28}, cardLineSpacing{15}, cardMinHeight{220},
    cardIcon{160};
inline constexpr Length cardCorner{16}, cardLinkTop{4}, shadowBlur{16}, shadowOffset{12};
inline constexpr Length rowSpacing{17}, rowLineSpacing{5}, rowIcon{64};
inline constexpr Length actionSpacing{12}, actionSymbol{24};
inline constexpr Length noteSpacing{10}, noteSymbol{16};
inline constexpr Length emptySymbol{54}, emptySpacing{12}, emptyLineSpacing{8}, emptyMargin{100};

inline constexpr Length detailSpacing{25}, detailIcon{134}, detailLineSpacing{10}, detailActionsTop{5};
inline constexpr Length factSpacing{34}, factLineSpacing{8}, featureSpacing{24};
inline constexpr Length descriptionExtra{6}, descriptionMaxWidth{740};
inline constexpr Length screenshotMaxWidth{680}, screenshotCorner{12};
inline constexpr Length instructionTop{4}, instructionExtra{5};

inline constexpr Length buttonHeight{30}, buttonMargin{16}, buttonCorner{7}, plainCorner{7};
inline constexpr Length focusRing{2}, focusGap{2}, bleedX{10}, bleedY{8};
inline constexpr Length fieldHeight{28}, fieldMargin{10}, fieldCorner{6};
inline constexpr Length spinner{16}, scrollBar{10};
inline constexpr Length sheetWidth{420}, sheetMargin{22}, sheetCorner{12}, sheetExtra{4}, sheetShadow{30};
inline constexpr Length sheetTextTop{12}, sheetButtonTop{18};

} // namespace Style
