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

inline constexpr Length hairline{1};
/// Symbols are measured by their square, about so many times the font size that they are named with.
inline constexpr qreal symbolPerFont = 1.15;
inline constexpr Length symbolGap{5};
inline constexpr Length menuBarHeight{28}, menuBarMarginX{6}, menuBarMarginY{3}, menuTitleMargin{10};

inline constexpr Length pageMargin{24}, pageMaxWidth{1300}, scrollStep{22};

inline constexpr Length buttonHeight{30}, buttonMargin{16}, buttonCorner{7}, plainCorner{7};
inline constexpr Length focusRing{2}, focusGap{2}, bleed{8};
inline constexpr Length fieldHeight{28}, fieldMargin{10}, fieldCorner{6}, clearSymbol{12};
inline constexpr Length spinner{16}, scrollBar{10};
inline constexpr Length sheetWidth{420}, sheetMargin{22}, sheetCorner{12}, sheetExtra{4}, sheetShadow{30};
inline constexpr Length sheetTextTop{12}, sheetButtonTop{18};

} // namespace Style
