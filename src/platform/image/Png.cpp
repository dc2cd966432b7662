#include "platform/image/Png.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <bit>
#include <memory>

namespace {

constexpr std::size_t signatureSize = 8;
constexpr std::size_t headerEnd = signatureSize + 8 + 13; // behind the content of IHDR

bool isPng(Bytes file)
{
    constexpr std::array<unsigned char, 16> beginning{
        0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I', 'H', 'D', 'R'};
    return file.size() >= headerEnd
        && std::ranges::equal(std::as_bytes(std::span(beginning)), file.first<beginning.size()>());
}

// Hands over, chunk by chunk, nothing but what the pixels depend on: libpng unpacks every text and colour
// profile that it meets, 8 MB from 8 KB each. False when the file ends before its last chunk.
template <class Take>
bool readEssence(Bytes file, Take take)
{
    constexpr std::array essential{fourCharacters("IHDR"), fourCharacters("PLTE"), fourCharacters("tRNS"),
        fourCharacters("gAMA"), fourCharacters("cHRM"), fourCharacters("sRGB"), fourCharacters("IDAT"),
        fourCharacters("IEND")};
    constexpr std::size_t frame = 12; // a chunk's length and type, and the checksum behind it

    take(file.first(signatureSize));
    Bytes rest = file.subspan(signatureSize);
    while (rest.size() >= frame && bigEndian32(rest, 0) <= rest.size() - frame) {
        const Bytes chunk = rest.first(bigEndian32(rest, 0) + frame);
        const std::uint32_t type = bigEndian32(chunk, 4);
        if (std::ranges::count(essential, type) > 0)
            take(chunk);
        if (type == essential.back())
            return true;
        rest = rest.subspan(chunk.size());
    }
    return false;
}

std::optional<Image> decode(Bytes file, PictureSize size, std::size_t essenceSize)
{
    std::vector<std::byte> essence;
    essence.reserve(essenceSize);
    readEssence(file, [&](Bytes part) { essence.insert(essence.end(), part.begin(), part.end()); });

    png_image reader{};
    reader.version = PNG_IMAGE_VERSION;
    const std::unique_ptr<png_image, decltype(&png_image_free)> release(&reader, &png_image_free);
    if (!png_image_begin_read_from_memory(&reader, essence.data(), essence.size()))
        return std::nullopt;

    reader.format = std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;
    reader.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
    Image image = blankImage(size);
    if (!png_image_finish_read(&reader, nullptr, image.pixels.data(), 0, nullptr))
        return std::nullopt;
    return image;
}

} // namespace

std::optional<Picture> pngPicture(Bytes file)
{
    if (!isPng(file) || !isAcceptable(bigEndian32(file, 16), bigEndian32(file, 20)))
        return std::nullopt;
    std::size_t packed = 0;
    if (!readEssence(file, [&packed](Bytes part) { packed += part.size(); }))
        return std::nullopt;

    const PictureSize size{static_cast<int>(bigEndian32(file, 16)), static_cast<int>(bigEndian32(file, 20))};
    return Picture{std::max(size.width, size.height), std::int64_t{size.width} * size.height,
        [file, size, packed] { return decode(file, size, packed); }};
}
