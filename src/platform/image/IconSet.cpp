#include "platform/image/IconSet.h"

#include "platform/image/Jpeg2000.h"
#include "platform/image/PackedIcon.h"
#include "platform/image/Png.h"

#include <algorithm>
#include <array>
#include <functional>

namespace {

constexpr std::size_t headerSize =
    8; // a type of four characters and the length of the whole, both of set and entry

// A set made to keep the program busy may have thousands of entries, all damaged in the end.
constexpr int mostAttempts = 16;

using Type = std::uint32_t;

constexpr Type type(const char (&name)[5])
{
    Type code = 0;
    for (int i = 0; i < 4; ++i)
        code = code << 8 | static_cast<unsigned char>(name[i]);
    return code;
}

struct PackedRgbType {
    Type picture;
    Type mask;
    int edge;
    /// How many bytes without meaning lie in front of the samples.
    std::size_t padding;
};

constexpr std::array packedRgbTypes{
    PackedRgbType{type("is32"), type("s8mk"), 16, 0},
    PackedRgbType{type("icp4"), type("s8mk"), 16, 0},
    PackedRgbType{type("il32"), type("l8mk"), 32, 0},
    PackedRgbType{type("icp5"), type("l8mk"), 32, 0},
    PackedRgbType{type("ih32"), type("h8mk"), 48, 0},
    PackedRgbType{type("it32"), type("t8mk"), 128, 4},
};

struct PackedArgbType {
    Type picture;
    int edge;
};

constexpr std::array packedArgbTypes{
    PackedArgbType{type("ic04"), 16},
    PackedArgbType{type("icsb"), 18},
    PackedArgbType{type("ic05"), 32},
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
    while (rest.size() >= headerSize) {
        const std::size_t length = bigEndian32(rest, 4);
        if (length < headerSize || length > rest.size())
            break;
        entries.push_back({bigEndian32(rest, 0), rest.subspan(headerSize, length - headerSize)});
        rest = rest.subspan(length);
    }
    return entries;
}

struct Candidate {
    int longerEdge;
    std::function<std::optional<Image>()> decode;
};

Bytes contentOf(std::span<const Entry> entries, Type wanted)
{
    const auto found = std::ranges::find(entries, wanted, &Entry::type);
    return found == entries.end() ? Bytes() : found->content;
}

std::optional<Candidate> candidate(const Entry& entry, std::span<const Entry> entries)
{
    const Bytes content = entry.content;
    if (const auto size = pngSize(content))
        return Candidate{std::max(size->width, size->height), [content] { return decodePng(content); }};
    if (const auto size = jpeg2000Size(content))
        return Candidate{std::max(size->width, size->height), [content] { return decodeJpeg2000(content); }};

    if (isPackedArgb(content)) {
        const auto packed = std::ranges::find(packedArgbTypes, entry.type, &PackedArgbType::picture);
        if (packed != packedArgbTypes.end())
            return Candidate{
                packed->edge, [content, packed] { return decodePackedArgb(content, packed->edge); }};
    }

    const auto packed = std::ranges::find(packedRgbTypes, entry.type, &PackedRgbType::picture);
    if (packed == packedRgbTypes.end() || content.size() < packed->padding)
        return std::nullopt;
    return Candidate{packed->edge, [content, entries, packed] {
                         return decodePackedRgb(content.subspan(packed->padding),
                             contentOf(entries, packed->mask), packed->edge);
                     }};
}

// The sufficient ones from the smallest, then the others from the largest.
void sortByFitness(std::vector<Candidate>& candidates, int edge)
{
    std::ranges::stable_sort(candidates, {}, &Candidate::longerEdge);
    const auto sufficient = std::ranges::lower_bound(candidates, edge, {}, &Candidate::longerEdge);
    std::reverse(candidates.begin(), sufficient);
    std::rotate(candidates.begin(), sufficient, candidates.end());
}

} // namespace

bool isIconSet(Bytes file)
{
    return file.size() >= headerSize && bigEndian32(file, 0) == type("icns");
}

std::optional<Image> decodeIconSet(Bytes file, int edge)
{
    const std::vector<Entry> entries = entriesOf(file);
    std::vector<Candidate> candidates;
    for (const Entry& entry : entries) {
        if (auto found = candidate(entry, entries))
            candidates.push_back(std::move(*found));
    }
    sortByFitness(candidates, edge);

    int attempts = 0;
    for (const Candidate& next : candidates) {
        if (auto image = next.decode())
            return image;
        if (++attempts == mostAttempts)
            break;
    }
    return std::nullopt;
}
