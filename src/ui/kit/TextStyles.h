#pragma once

#include <QtGlobal>

namespace Style {

enum class Weight { Regular, Medium, Semibold, Bold };

/// Rounded is the nearest rounded or geometric family installed, else the system font.
enum class Design { System, Rounded };

/// A font in words: cheap, nothing is looked up.
struct TextStyle {
    qreal size = 13;
    Weight weight = Weight::Regular;
    Design design = Design::System;

    bool operator==(const TextStyle&) const = default;
};

inline constexpr TextStyle body{13};
inline constexpr TextStyle menu{13}, menuName{13, Weight::Bold};
inline constexpr TextStyle windowTitle{15, Weight::Bold};

inline constexpr TextStyle brandName{23, Weight::Bold};
inline constexpr TextStyle sectionTitle{14, Weight::Medium};
inline constexpr TextStyle makerName{13, Weight::Medium}, makerNote{10};
inline constexpr TextStyle field{13};

inline constexpr TextStyle pageTitle{34, Weight::Bold, Design::Rounded}, pageSubtitle{15};
inline constexpr TextStyle cardTitle{34, Weight::Bold, Design::Rounded}, cardName{22, Weight::Semibold};
inline constexpr TextStyle cardNote{15}, cardLink{14, Weight::Semibold};
inline constexpr TextStyle collectionTitle{24, Weight::Bold};
inline constexpr TextStyle rowName{19, Weight::Semibold}, rowSubtitle{14}, rowMeta{12};
inline constexpr TextStyle footerNote{13};
inline constexpr TextStyle emptyTitle{20, Weight::Bold}, emptyNote{13};

inline constexpr TextStyle detailName{36, Weight::Bold}, detailSubtitle{17}, detailAuthor{14};
inline constexpr TextStyle factCaption{10, Weight::Semibold}, factValue{13, Weight::Medium};
inline constexpr TextStyle headline{30, Weight::Bold, Design::Rounded}, description{16}, feature{13};
inline constexpr TextStyle instructionTitle{22, Weight::Bold}, instruction{13}, signingNote{12};

inline constexpr TextStyle button{13, Weight::Medium};
inline constexpr TextStyle sheetTitle{15, Weight::Semibold}, sheetText{13};

} // namespace Style
