#include "platform/image/Png.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <bit>
#include <memory>

namespace {

constexpr std::array<unsigned char, 16> beginning{
    0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I', 'H', 'D', 'R'};

}

std::optional<PictureSize> pngSize(Bytes file)
{
    constexpr std::size_t sizeEnd = beginning.size() + 8;
    if (file.size() < sizeEnd
        || !std::ranges::equal(std::as_bytes(std::span(beginning)), file.first<beginning.size()>()))
        return std::nullopt;

    const PictureSize size{static_cast<int>(bigEndian32(file, 16)), static_cast<int>(bigEndian32(file, 20))};
    return isAcceptable(size) ? std::optional(size) : std::nullopt;
}

std::optional<Image> decodePng(Bytes file)
{
    const auto size = pngSize(file);
    if (!size)
        return std::nullopt;

    png_image reader{};
    reader.version = PNG_IMAGE_VERSION;
    const std::unique_ptr<png_image, decltype(&png_image_free)> release(&reader, &png_image_free);
    if (!png_image_begin_read_from_memory(&reader, file.data(), file.size()))
        return std::nullopt;

    reader.format = std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;
    Image image = blankImage(*size);
    if (!png_image_finish_read(&reader, nullptr, image.pixels.data(), 0, nullptr))
        return std::nullopt;
    return image;
}
