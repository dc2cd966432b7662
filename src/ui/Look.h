#pragma once

#include "ui/kit/Style.h"

/// How the screens look: every colour, text and length that belongs to one of them. What the widgets of the
/// kit need for themselves, whatever they show, is in Style.
namespace Look {

using Style::Length;
using Style::TextStyle;
using Style::Weight;

inline constexpr Length windowWidth{1180}, windowHeight{840}, windowMinWidth{900}, windowMinHeight{620};
inline constexpr Length windowIcon{64}, titleBarHeight{42}, refreshSymbol{18};

inline constexpr Length sidebarMinWidth{220}, sidebarWidth{235}, sidebarMaxWidth{265};
inline constexpr Length sidebarMargin{16}, sidebarSpacing{22}, sidebarTop{18}, sidebarBottom{18};
inline constexpr Length brandImage{36}, brandSpacing{9};
inline constexpr Length sectionSpacing{5}, sectionMarginX{12}, sectionMarginY{10}, sectionCorner{9};
inline constexpr Length sectionSymbol{18}, sectionGap{8};
inline constexpr Length makerSymbol{32}, makerSpacing{10}, makerLineSpacing{3};

inline constexpr Length pageSpacing{22}, headerSpacing{8};
inline constexpr Length cardMargin{24}, cardSpacing{28}, cardLineSpacing{15}, cardMinHeight{220},
    cardIcon{160};
inline constexpr Length cardCorner{16}, cardLinkTop{4}, shadowBlur{16}, shadowOffset{12};
inline constexpr Length rowSpacing{17}, rowLineSpacing{5}, rowIcon{64};
inline constexpr Length actionSpacing{12}, actionSymbol{24};
inline constexpr Length noteSpacing{10}, noteSymbol{16};
inline constexpr Length emptySymbol{54}, emptySpacing{12}, emptyLineSpacing{8}, emptyMargin{100};

inline constexpr Length detailSpacing{25}, detailIcon{134}, detailLineSpacing{10}, detailActionsTop{5};
inline constexpr Length factSpacing{34}, factLineSpacing{8}, featureSpacing{24};
/// Many features stand in several rows rather than break every word.
inline constexpr Length featureMinWidth{120};
inline constexpr Length descriptionExtra{6}, descriptionMaxWidth{740};
inline constexpr Length screenshotMaxWidth{680}, screenshotCorner{12};
inline constexpr Length instructionTop{4}, instructionExtra{5};

inline constexpr TextStyle menu{13}, menuName{13, Weight::Bold};
inline constexpr TextStyle windowTitle{15, Weight::Bold};

inline constexpr TextStyle brandName{23, Weight::Bold};
inline constexpr TextStyle sectionTitle{14, Weight::Medium};
inline constexpr TextStyle makerName{13, Weight::Medium}, makerNote{10};

inline constexpr TextStyle pageTitle{34, Weight::Bold, Style::Design::Rounded}, pageSubtitle{15};
inline constexpr TextStyle cardTitle{34, Weight::Bold, Style::Design::Rounded, 1.2};
inline constexpr TextStyle cardName{22, Weight::Semibold};
inline constexpr TextStyle cardNote{15}, cardLink{14, Weight::Semibold};
inline constexpr TextStyle collectionTitle{24, Weight::Bold};
inline constexpr TextStyle rowName{19, Weight::Semibold}, rowSubtitle{14}, rowMeta{12};
inline constexpr TextStyle footerNote{13};
inline constexpr TextStyle emptyTitle{20, Weight::Bold}, emptyNote{13};

inline constexpr TextStyle detailName{36, Weight::Bold}, detailSubtitle{17}, detailAuthor{14};
inline constexpr TextStyle factCaption{10, Weight::Semibold}, factValue{13, Weight::Medium};
inline constexpr TextStyle headline{30, Weight::Bold, Style::Design::Rounded}, description{16}, feature{13};
inline constexpr TextStyle instructionTitle{22, Weight::Bold}, instruction{13}, signingNote{12};

QColor menuBar();
QColor sidebar();
/// The line on the sidebar's right.
QColor sidebarEdge();
/// The chosen section.
QColor selection();
/// White as the featured card's smaller text wears it.
QColor cardText();
QColor cardStart();
QColor cardEnd();
QColor shadow();

} // namespace Look
