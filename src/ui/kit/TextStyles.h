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
    /// At most this much of the size from line to line; 0: as much as the font wants.
    qreal lineHeight = 0;

    bool operator==(const TextStyle&) const = default;
};

inline constexpr TextStyle body{13}, field{13};
inline constexpr TextStyle button{13, Weight::Medium};
inline constexpr TextStyle sheetTitle{15, Weight::Semibold}, sheetText{13};

} // namespace Style
