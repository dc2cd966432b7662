#pragma once

#include "platform/Image.h"

/// The bytes of an image file, or of a picture within one.
using Bytes = std::span<const std::byte>;

struct PictureSize {
    int width = 0;
    int height = 0;

    bool operator==(const PictureSize&) const = default;
};

/// Whether a picture of this size is decoded at all. Some bytes can claim any size, and memory has an end: 32
/// million pixels are enough for a screen of 7680 × 4320.
constexpr bool isAcceptable(PictureSize size)
{
    constexpr int longestEdge = 16384;
    constexpr std::int64_t mostPixels = std::int64_t{1} << 25;
    return size.width > 0 && size.width <= longestEdge && size.height > 0 && size.height <= longestEdge
        && std::int64_t{size.width} * size.height <= mostPixels;
}

/// An image of this size, all transparent. The size must be acceptable.
inline Image blankImage(PictureSize size)
{
    const auto count = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    return {size.width, size.height, std::vector<std::uint32_t>(count)};
}

/// The big-endian number at `offset`; there must be four bytes.
inline std::uint32_t bigEndian32(Bytes bytes, std::size_t offset)
{
    std::uint32_t number = 0;
    for (const std::byte byte : bytes.subspan(offset, 4))
        number = number << 8 | std::to_integer<std::uint32_t>(byte);
    return number;
}

constexpr std::uint32_t packedPixel(
    std::uint32_t alpha, std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    return alpha << 24 | red << 16 | green << 8 | blue;
}
