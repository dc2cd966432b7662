#pragma once

/// How small the pictures of a store may be.
namespace picture_size {

/// Two pixels for each one that the featured card gives an icon; four for each that the sidebar gives the
/// brand image.
inline constexpr int smallestIcon = 320;
inline constexpr int smallestScreenshot = 320;
inline constexpr int brandEdge = 144;

} // namespace picture_size
