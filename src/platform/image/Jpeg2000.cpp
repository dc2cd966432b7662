#include "platform/image/Jpeg2000.h"

#include <openjpeg.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

namespace {

// Where the marker segment SIZ lies in a codestream, as far as its first component.
constexpr std::size_t siz = 2;
constexpr std::size_t sizSize = 42;

// One picture of this size takes the decoder a hundred times its memory when its bytes are made to do so; no
// icon is larger.
constexpr std::int64_t mostPixels = std::int64_t{1} << 20;
constexpr std::int64_t mostTiles = 1024;

bool startsWith(Bytes bytes, std::initializer_list<unsigned char> beginning)
{
    return bytes.size() >= beginning.size()
        && std::equal(beginning.begin(), beginning.end(), bytes.begin(),
            [](unsigned char left, std::byte right) { return std::byte{left} == right; });
}

bool isBoxFile(Bytes file)
{
    return startsWith(file, {0, 0, 0, 12, 'j', 'P', ' ', ' ', '\r', '\n', 0x87, '\n'});
}

struct Box {
    std::uint32_t type;
    /// With the length and the type in front.
    Bytes whole;
    Bytes content;
};

constexpr std::uint32_t codestreamBox = 0x6A703263; // jp2c

std::optional<Box> firstBox(Bytes bytes)
{
    if (bytes.size() < 8)
        return std::nullopt;

    std::size_t header = 8;
    std::size_t length = bigEndian32(bytes, 0);
    if (length == 0) {
        length = bytes.size();
    } else if (length == 1 && bytes.size() >= 16 && bigEndian32(bytes, 8) == 0) {
        header = 16;
        length = bigEndian32(bytes, 12);
    }
    if (length < header || length > bytes.size())
        return std::nullopt;
    return Box{bigEndian32(bytes, 4), bytes.first(length), bytes.subspan(header, length - header)};
}

struct Layout {
    Bytes boxes;
    Bytes codestream;
};

std::optional<Layout> layoutOf(Bytes file)
{
    if (!isBoxFile(file))
        return Layout{{}, file};

    std::size_t position = 0;
    while (const auto box = firstBox(file.subspan(position))) {
        if (box->type == codestreamBox)
            return Layout{file.first(position), box->content};
        position += box->whole.size();
    }
    return std::nullopt;
}

// A palette makes up to 255 channels of one, more than memory may hold.
bool hasPalette(Bytes boxes)
{
    constexpr std::array<std::byte, 4> name{std::byte{'p'}, std::byte{'c'}, std::byte{'l'}, std::byte{'r'}};
    return std::search(boxes.begin(), boxes.end(), name.begin(), name.end()) != boxes.end();
}

std::int64_t tileCount(std::int64_t length, std::int64_t tile)
{
    return tile > 0 ? (length + tile - 1) / tile : 0;
}

namespace marker {

constexpr std::uint32_t codingStyle = 0xFF52;
constexpr std::uint32_t codingStyleOfComponent = 0xFF53;
constexpr std::uint32_t startOfTilePart = 0xFF90;
constexpr std::uint32_t startOfData = 0xFF93;

} // namespace marker

// A precinct costs the decoder some hundred bytes and their initialisation before it looks at any data. A
// segment that sets a coding style may name the edges of precincts at its end, two exponents in each byte.
bool hasTinyPrecincts(Bytes segment, std::size_t styleOffset, std::size_t precinctsOffset)
{
    constexpr auto smallestExponent = std::byte{4};
    if (segment.size() <= precinctsOffset || (segment[styleOffset] & std::byte{1}) == std::byte{0})
        return false;
    return std::ranges::any_of(segment.subspan(precinctsOffset), [](std::byte exponents) {
        return (exponents & std::byte{15}) < smallestExponent || (exponents >> 4) < smallestExponent;
    });
}

// Walks over the headers of the picture and of all parts of its tiles.
bool isModest(Bytes codestream)
{
    Bytes rest = codestream.subspan(siz);
    Bytes behindTilePart;
    while (rest.size() >= 4) {
        const std::uint32_t type = bigEndian32(rest, 0) >> 16;
        if (type == marker::startOfData) {
            rest = std::exchange(behindTilePart, {});
            continue;
        }
        const Bytes segment =
            rest.first(std::min<std::size_t>(rest.size(), 2 + (bigEndian32(rest, 0) & 0xFFFF)));
        if (type < 0xFF00 || (type == marker::codingStyle && hasTinyPrecincts(segment, 4, 14))
            || (type == marker::codingStyleOfComponent && hasTinyPrecincts(segment, 5, 11)))
            return false;
        if (type == marker::startOfTilePart && segment.size() >= 12) {
            const std::size_t length = bigEndian32(segment, 6);
            behindTilePart = length == 0 ? Bytes() : rest.subspan(std::min(length, rest.size()));
        }
        rest = rest.subspan(segment.size());
    }
    return true;
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

Decoded decode(Source& source)
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
    opj_image_t* image = nullptr;
    const bool hasHeader =
        opj_setup_decoder(codec.get(), &parameters) && opj_read_header(stream.get(), codec.get(), &image);
    Decoded decoded(image, &opj_image_destroy);
    const bool succeeded = hasHeader && opj_decode(codec.get(), stream.get(), image)
        && opj_end_decompress(codec.get(), stream.get());
    return succeeded ? std::move(decoded) : std::move(none);
}

PictureSize sizeOf(const opj_image_comp_t& component)
{
    return {static_cast<int>(component.w), static_cast<int>(component.h)};
}

/// One component, brought to 8 bits and to the size of the picture.
class Plane {
public:
    Plane(const opj_image_comp_t& component, PictureSize size)
        : m_component(component)
        , m_size(size)
        , m_offset(component.sgnd ? std::int64_t{1} << (component.prec - 1) : 0)
        , m_highest((std::int64_t{1} << component.prec) - 1)
    {
    }

    std::uint32_t at(int x, int y) const
    {
        const int column = static_cast<int>(m_component.w) * x / m_size.width;
        const int row = static_cast<int>(m_component.h) * y / m_size.height;
        const auto sample = m_component.data[row * static_cast<int>(m_component.w) + column] + m_offset;
        const auto value = std::clamp<std::int64_t>(sample, 0, m_highest);
        return static_cast<std::uint32_t>(
            m_highest == 255 ? value : (value * 255 + m_highest / 2) / m_highest);
    }

private:
    const opj_image_comp_t& m_component;
    PictureSize m_size;
    std::int64_t m_offset;
    std::int64_t m_highest;
};

bool isUsable(const opj_image_comp_t& component)
{
    return component.data && isAcceptable(sizeOf(component)) && component.prec >= 1 && component.prec <= 31;
}

bool isUsable(const opj_image_t& image)
{
    const std::span components(image.comps, image.numcomps);
    const bool isKnownColour = image.color_space != OPJ_CLRSPC_CMYK && image.color_space != OPJ_CLRSPC_EYCC;
    return isKnownColour && !components.empty() && components.size() <= 4
        && std::ranges::all_of(components, [](const auto& component) { return isUsable(component); });
}

std::uint32_t toByte(double value)
{
    return static_cast<std::uint32_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

// sYCC is defined in IEC 61966-2-1, amendment 1.
std::uint32_t pixelOfYcc(std::uint32_t alpha, double luma, double blueDifference, double redDifference)
{
    const double blue = blueDifference - 128;
    const double red = redDifference - 128;
    return packedPixel(alpha, toByte(luma + 1.402 * red), toByte(luma - 0.344136 * blue - 0.714136 * red),
        toByte(luma + 1.772 * blue));
}

Image toImage(const opj_image_t& decoded)
{
    const PictureSize size = sizeOf(decoded.comps[0]);
    const bool isColour = decoded.numcomps >= 3;
    const bool hasAlpha = decoded.numcomps % 2 == 0;
    const Plane first(decoded.comps[0], size);
    const Plane second(decoded.comps[isColour ? 1 : 0], size);
    const Plane third(decoded.comps[isColour ? 2 : 0], size);
    const Plane last(decoded.comps[decoded.numcomps - 1], size);

    Image image = blankImage(size);
    auto pixel = image.pixels.begin();
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            const std::uint32_t alpha = hasAlpha ? last.at(x, y) : 255;
            *pixel++ = isColour && decoded.color_space == OPJ_CLRSPC_SYCC
                ? pixelOfYcc(alpha, first.at(x, y), second.at(x, y), third.at(x, y))
                : packedPixel(alpha, first.at(x, y), second.at(x, y), third.at(x, y));
        }
    }
    return image;
}

} // namespace

std::optional<PictureSize> jpeg2000Size(Bytes file)
{
    const auto layout = layoutOf(file);
    if (!layout || hasPalette(layout->boxes) || layout->codestream.size() < siz + sizSize
        || !startsWith(layout->codestream, {0xFF, 0x4F, 0xFF, 0x51}))
        return std::nullopt;

    const Bytes segment = layout->codestream.subspan(siz, sizSize);
    const auto field = [segment](std::size_t offset) { return std::int64_t{bigEndian32(segment, offset)}; };
    const std::int64_t right = field(6);
    const std::int64_t bottom = field(10);
    const std::int64_t width = right - field(14);
    const std::int64_t height = bottom - field(18);
    const std::int64_t tiles =
        tileCount(right - field(30), field(22)) * tileCount(bottom - field(34), field(26));
    const std::int64_t components = field(38) >> 16;
    if (width < 1 || width > mostPixels || height < 1 || height > mostPixels || width * height > mostPixels
        || tiles < 1 || tiles > mostTiles || components < 1 || components > 4
        || !isModest(layout->codestream))
        return std::nullopt;
    return PictureSize{static_cast<int>(width), static_cast<int>(height)};
}

std::optional<Image> decodeJpeg2000(Bytes file)
{
    if (!jpeg2000Size(file))
        return std::nullopt;

    Source source{file};
    const Decoded decoded = decode(source);
    return decoded && isUsable(*decoded) ? std::optional(toImage(*decoded)) : std::nullopt;
}
