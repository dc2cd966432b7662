#pragma once

#include "platform/Image.h"

#include <functional>

/// The bytes of an image file, or of a picture within one.
using Bytes = std::span<const std::byte>;

struct PictureSize {
    int width = 0;
    int height = 0;

    bool operator==(const PictureSize&) const = default;
};

/// How many pixels one call of decodeImage() may decode, of all pictures that it tries.
constexpr std::int64_t mostPixels = 10'000'000;

/// A picture of which only the headers have been read.
struct Picture {
    int longerEdge = 0;
    /// How many pixels of a PNG file take as long to decode.
    std::int64_t pixels = 0;
    /// None when the picture is damaged. The file must still be there.
    std::function<std::optional<Image>()> decode;
};

/// Whether these can be the edges of a picture.
constexpr bool isAcceptable(std::int64_t width, std::int64_t height)
{
    constexpr int longestEdge = 16384;
    return width > 0 && width <= longestEdge && height > 0 && height <= longestEdge;
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

/// The four characters of a name as the number that stands for them in a file.
constexpr std::uint32_t fourCharacters(const char (&name)[5])
{
    std::uint32_t code = 0;
    for (int i = 0; i < 4; ++i)
        code = code << 8 | static_cast<unsigned char>(name[i]);
    return code;
}

constexpr std::uint32_t packedPixel(
    std::uint32_t alpha, std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    return alpha << 24 | red << 16 | green << 8 | blue;
}
