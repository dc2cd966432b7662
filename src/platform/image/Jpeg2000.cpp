#include "platform/image/Jpeg2000.h"

#include "platform/image/Codestream.h"

#include <openjpeg.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace {

bool isBoxFile(Bytes file)
{
    constexpr std::array<unsigned char, 12> beginning{
        0, 0, 0, 12, 'j', 'P', ' ', ' ', '\r', '\n', 0x87, '\n'};
    return file.size() >= beginning.size()
        && std::ranges::equal(std::as_bytes(std::span(beginning)), file.first<beginning.size()>());
}

constexpr std::size_t boxHeaderSize = 8; // a length and a type

/// A pixel takes as long as so many of a PNG file.
constexpr std::int64_t timesAsDear = 16;

struct Box {
    std::uint32_t type;
    std::size_t length;
};

std::optional<Box> firstBox(Bytes bytes)
{
    if (bytes.size() < boxHeaderSize)
        return std::nullopt;
    const std::size_t length = bigEndian32(bytes, 0);
    const Box box{bigEndian32(bytes, 4), length == 0 ? bytes.size() : length};
    if (box.length < boxHeaderSize || box.length > bytes.size())
        return std::nullopt;
    return box;
}

struct Layout {
    Bytes boxes;
    /// As far as the file reaches: the decoder does not stop at the end of its box.
    Bytes codestream;
};

std::optional<Layout> layoutOf(Bytes file)
{
    if (!isBoxFile(file))
        return Layout{{}, file};

    std::size_t position = 0;
    while (const auto box = firstBox(file.subspan(position))) {
        if (box->type == fourCharacters("jp2c"))
            return Layout{file.first(position), file.subspan(position + boxHeaderSize)};
        position += box->length;
    }
    return std::nullopt;
}

// A palette makes up to 255 channels of one, more than memory may hold.
bool hasPalette(Bytes boxes)
{
    constexpr std::array<std::byte, 4> name{std::byte{'p'}, std::byte{'c'}, std::byte{'l'}, std::byte{'r'}};
    return std::search(boxes.begin(), boxes.end(), name.begin(), name.end()) != boxes.end();
}

struct Source {
    Bytes bytes;
    std::size_t position = 0;
};

OPJ_SIZE_T readSource(void* buffer, OPJ_SIZE_T size, void* user)
{
    auto* source = static_cast<Source*>(user);
    const Bytes rest = source->bytes.subspan(source->position);
    if (rest.empty())
        return static_cast<OPJ_SIZE_T>(-1);

    const Bytes taken = rest.first(std::min(size, rest.size()));
    std::ranges::copy(taken, static_cast<std::byte*>(buffer));
    source->position += taken.size();
    return taken.size();
}

OPJ_BOOL seekSource(OPJ_OFF_T position, void* user)
{
    auto* source = static_cast<Source*>(user);
    if (position < 0 || static_cast<std::size_t>(position) > source->bytes.size())
        return OPJ_FALSE;
    source->position = static_cast<std::size_t>(position);
    return OPJ_TRUE;
}

OPJ_OFF_T skipSource(OPJ_OFF_T count, void* user)
{
    auto* source = static_cast<Source*>(user);
    const auto rest = static_cast<OPJ_OFF_T>(source->bytes.size() - source->position);
    if (count < 0 || count > rest)
        return -1;
    source->position += static_cast<std::size_t>(count);
    return count;
}

using Stream = std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)>;
using Codec = std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)>;
using Decoded = std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)>;

Decoded decode(Source& source, int halvings)
{
    Decoded none(nullptr, &opj_image_destroy);
    const Stream stream(opj_stream_default_create(OPJ_TRUE), &opj_stream_destroy);
    const Codec codec(
        opj_create_decompress(isBoxFile(source.bytes) ? OPJ_CODEC_JP2 : OPJ_CODEC_J2K), &opj_destroy_codec);
    if (!stream || !codec)
        return none;

    opj_stream_set_user_data(stream.get(), &source, nullptr);
    opj_stream_set_user_data_length(stream.get(), source.bytes.size());
    opj_stream_set_read_function(stream.get(), &readSource);
    opj_stream_set_seek_function(stream.get(), &seekSource);
    opj_stream_set_skip_function(stream.get(), &skipSource);

    opj_dparameters_t parameters;
    opj_set_default_decoder_parameters(&parameters);
    parameters.cp_reduce = static_cast<OPJ_UINT32>(halvings);
    opj_image_t* image = nullptr;
    const bool hasHeader =
        opj_setup_decoder(codec.get(), &parameters) && opj_read_header(stream.get(), codec.get(), &image);
    Decoded decoded(image, &opj_image_destroy);
    const bool succeeded = hasHeader && opj_decode(codec.get(), stream.get(), image)
        && opj_end_decompress(codec.get(), stream.get());
    return succeeded ? std::move(decoded) : std::move(none);
}

bool isUsable(const opj_image_t& image)
{
    const std::span components(image.comps, image.numcomps);
    return image.color_space <= OPJ_CLRSPC_GRAY && !components.empty() && components.size() <= 4
        && std::ranges::all_of(components, [first = components[0]](const opj_image_comp_t& component) {
               return component.data && component.w == first.w && component.h == first.h;
           });
}

Image toImage(const opj_image_t& decoded)
{
    const std::span components(decoded.comps, decoded.numcomps);
    const bool isColour = components.size() >= 3;
    const bool hasAlpha = components.size() % 2 == 0;
    Image image = blankImage({static_cast<int>(components[0].w), static_cast<int>(components[0].h)});
    for (std::size_t i = 0; i < image.pixels.size(); ++i) {
        const auto sample = [&](std::size_t component) {
            return static_cast<std::uint32_t>(std::clamp(components[component].data[i], 0, 255));
        };
        image.pixels[i] = packedPixel(hasAlpha ? sample(components.size() - 1) : 255, sample(0),
            sample(isColour ? 1 : 0), sample(isColour ? 2 : 0));
    }
    return image;
}

std::optional<Image> decodeFile(Bytes file, int halvings)
{
    Source source{file};
    const Decoded decoded = decode(source, halvings);
    return decoded && isUsable(*decoded) ? std::optional(toImage(*decoded)) : std::nullopt;
}

std::int64_t pixelsOf(PictureSize size, int halvings)
{
    const auto halved = [halvings](int length) { return ((std::int64_t{length} - 1) >> halvings) + 1; };
    return halved(size.width) * halved(size.height);
}

} // namespace

std::optional<Picture> jpeg2000Picture(Bytes file, int edge)
{
    // As many take up to a third of a second.
    constexpr std::int64_t mostSamples = std::int64_t{1} << 20;
    constexpr int toOnePixel = 14;
    const auto layout = layoutOf(file);
    if (!layout || hasPalette(layout->boxes))
        return std::nullopt;
    const auto codestream = readCodestream(layout->codestream);
    if (!codestream)
        return std::nullopt;

    const PictureSize size = codestream->size;
    const int longerEdge = std::max(size.width, size.height);
    const auto isTooMuch = [&](int halvings) {
        return pixelsOf(size, halvings) * codestream->components > mostSamples;
    };
    int halvings = 0;
    while (halvings < std::min(codestream->halvings, toOnePixel)
        && (longerEdge >> (halvings + 1) >= edge || isTooMuch(halvings)))
        ++halvings;
    if (isTooMuch(halvings))
        return std::nullopt;
    return Picture{longerEdge, timesAsDear * pixelsOf(size, halvings),
        [file, halvings] { return decodeFile(file, halvings); }};
}
