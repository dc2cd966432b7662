#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// A picture in memory.
struct Image {
    int width = 0;
    int height = 0;
    /// Rows from the top, `width` pixels each, as 0xAARRGGBB in sRGB; alpha is not multiplied in.
    std::vector<std::uint32_t> pixels;

    bool operator==(const Image&) const = default;
};

/// The picture that an image file holds: PNG (W3C) of up to 32 million pixels, JPEG 2000 (ISO/IEC 15444-1,
/// file or bare codestream, without palette) of up to one million, or a set of icons (ICNS) with entries of
/// these two kinds, run-length packed RGB with its mask, or packed ARGB. Of a set, the smallest picture whose
/// longer edge is at least `edge` pixels, else the largest; damaged entries are passed over. None when the
/// file holds no picture that can be read. Does not trust the file: any bytes are safe. Any thread.
std::optional<Image> decodeImage(std::span<const std::byte> file, int edge);
