#include "platform/image/IconSet.h"

#include "platform/image/Jpeg2000.h"
#include "platform/image/PackedIcon.h"
#include "platform/image/Png.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t headerSize =
    8; // a type of four characters and the length of the whole, of set and entry
// There are fewer types of pictures. The headers of each are read before one is chosen.
constexpr std::size_t mostEntries = 64;

using Type = std::uint32_t;

struct PackedRgbType {
    Type picture;
    Type mask;
    int edge;
    /// How many bytes without meaning lie in front of the samples.
    std::size_t padding;
};

constexpr std::array packedRgbTypes{
    PackedRgbType{fourCharacters("is32"), fourCharacters("s8mk"), 16, 0},
    PackedRgbType{fourCharacters("icp4"), fourCharacters("s8mk"), 16, 0},
    PackedRgbType{fourCharacters("il32"), fourCharacters("l8mk"), 32, 0},
    PackedRgbType{fourCharacters("icp5"), fourCharacters("l8mk"), 32, 0},
    PackedRgbType{fourCharacters("ih32"), fourCharacters("h8mk"), 48, 0},
    PackedRgbType{fourCharacters("it32"), fourCharacters("t8mk"), 128, 4},
};

struct PackedArgbType {
    Type picture;
    int edge;
};

constexpr std::array packedArgbTypes{
    PackedArgbType{fourCharacters("ic04"), 16},
    PackedArgbType{fourCharacters("icsb"), 18},
    PackedArgbType{fourCharacters("ic05"), 32},
};

struct Entry {
    Type type;
    Bytes content;
};

std::vector<Entry> entriesOf(Bytes file)
{
    std::vector<Entry> entries;
    Bytes rest = file.first(std::min<std::size_t>(file.size(), bigEndian32(file, 4)));
    rest = rest.subspan(std::min(rest.size(), headerSize));
    while (rest.size() >= headerSize && entries.size() < mostEntries) {
        const std::size_t length = bigEndian32(rest, 4);
        if (length < headerSize || length > rest.size())
            break;
        entries.push_back({bigEndian32(rest, 0), rest.subspan(headerSize, length - headerSize)});
        rest = rest.subspan(length);
    }
    return entries;
}

Bytes contentOf(std::span<const Entry> entries, Type wanted)
{
    const auto found = std::ranges::find(entries, wanted, &Entry::type);
    return found == entries.end() ? Bytes() : found->content;
}

std::optional<Picture> pictureIn(const Entry& entry, std::span<const Entry> set, int edge)
{
    const Bytes content = entry.content;
    if (auto picture = pngPicture(content))
        return picture;
    if (auto picture = jpeg2000Picture(content, edge))
        return picture;

    const auto argb = std::ranges::find(packedArgbTypes, entry.type, &PackedArgbType::picture);
    if (isPackedArgb(content) && argb != packedArgbTypes.end())
        return Picture{argb->edge, std::int64_t{argb->edge} * argb->edge,
            [=] { return decodePackedArgb(content, argb->edge); }};

    const auto rgb = std::ranges::find(packedRgbTypes, entry.type, &PackedRgbType::picture);
    if (rgb == packedRgbTypes.end() || content.size() < rgb->padding)
        return std::nullopt;
    const Bytes samples = content.subspan(rgb->padding);
    const Bytes mask = contentOf(set, rgb->mask);
    return Picture{rgb->edge, std::int64_t{rgb->edge} * rgb->edge,
        [=] { return decodePackedRgb(samples, mask, rgb->edge); }};
}

} // namespace

bool isIconSet(Bytes file)
{
    return file.size() >= headerSize && bigEndian32(file, 0) == fourCharacters("icns");
}

std::vector<Picture> picturesIn(Bytes iconSet, int edge)
{
    const std::vector<Entry> entries = entriesOf(iconSet);
    std::vector<Picture> pictures;
    for (const Entry& entry : entries) {
        if (auto picture = pictureIn(entry, entries, edge))
            pictures.push_back(std::move(*picture));
    }
    return pictures;
}
