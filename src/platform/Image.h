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

/// The picture that an image file holds: PNG (W3C), JPEG 2000 (ISO/IEC 15444-1, file or bare codestream; grey
/// or RGB, with or without alpha, of 8 bits each), or a set of icons (ICNS) with entries of these two kinds,
/// run-length packed RGB with its mask, or packed ARGB. Of a set, the smallest picture whose longer edge is
/// at least `edge` pixels, else the largest; damaged entries are passed over. JPEG 2000 is decoded at the
/// smallest of its resolutions that has `edge` pixels, and never larger than a million samples.
///
/// Any bytes are safe, and take less than 64 MiB and a second: what a picture would take is told from its
/// headers before it is decoded. At most 10 million pixels are decoded, of a set in all, where one of JPEG
/// 2000 counts as 16; and JPEG 2000 is refused that asks for more than an encoder of icons does. None when
/// the file holds no picture that can be read. Any thread.
std::optional<Image> decodeImage(std::span<const std::byte> file, int edge);
