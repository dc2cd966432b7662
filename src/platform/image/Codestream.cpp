#include "platform/image/Codestream.h"

#include <algorithm>

namespace {

namespace marker {

constexpr std::uint32_t start = 0xFF4F;
constexpr std::uint32_t size = 0xFF51;
constexpr std::uint32_t codingStyle = 0xFF52;
constexpr std::uint32_t codingStyleOfComponent = 0xFF53;
constexpr std::uint32_t tilePartLengths = 0xFF55;
constexpr std::uint32_t packetLengths = 0xFF58;
constexpr std::uint32_t quantization = 0xFF5C;
constexpr std::uint32_t quantizationOfComponent = 0xFF5D;
constexpr std::uint32_t comment = 0xFF64;
constexpr std::uint32_t startOfTilePart = 0xFF90;
constexpr std::uint32_t startOfData = 0xFF93;
constexpr std::uint32_t end = 0xFFD9;

} // namespace marker

// An icon has at most 1024 × 1024 pixels, and encoders make one tile, one layer and blocks of 64 × 64.
constexpr std::int64_t largestPicture = std::int64_t{1} << 20;
constexpr std::int64_t mostTiles = 16;
constexpr int mostLayers = 16;
// As powers of two: of the pixels in a block, and of a precinct's edges.
constexpr int smallestBlock = 8;
constexpr int smallestPrecinct = 5;

int byteAt(Bytes bytes, std::size_t offset)
{
    return std::to_integer<int>(bytes[offset]);
}

int wordAt(Bytes bytes, std::size_t offset)
{
    return byteAt(bytes, offset) << 8 | byteAt(bytes, offset + 1);
}

std::int64_t tileCount(std::int64_t length, std::int64_t tile)
{
    return tile > 0 ? (length + tile - 1) / tile : 0;
}

/// Reads the headers one after the other.
class Reader {
public:
    explicit Reader(Bytes codestream) : m_rest(codestream) { }

    std::optional<Codestream> read()
    {
        if (nextMarker() != marker::start || nextMarker() != marker::size || !readSize(nextSegment()))
            return std::nullopt;
        std::uint32_t type = nextMarker();
        for (; type != marker::startOfTilePart; type = nextMarker()) {
            if (!readMainSegment(type, nextSegment()))
                return std::nullopt;
        }
        while (type == marker::startOfTilePart) {
            if (!readTilePart())
                return std::nullopt;
            type = m_rest.empty() ? marker::end : nextMarker();
        }
        return type == marker::end && m_hasStyle ? std::optional(m_result) : std::nullopt;
    }

private:
    // Zero, which is no marker, when there is none.
    std::uint32_t nextMarker()
    {
        if (m_rest.size() < 2)
            return 0;
        const int type = wordAt(m_rest, 0);
        m_rest = m_rest.subspan(2);
        return static_cast<std::uint32_t>(type);
    }

    // The segment behind a marker, without its length. Empty when it is damaged.
    Bytes nextSegment()
    {
        const std::size_t length = m_rest.size() < 2 ? 0 : static_cast<std::size_t>(wordAt(m_rest, 0));
        if (length < 2 || length > m_rest.size())
            return {};
        const Bytes segment = m_rest.subspan(2, length - 2);
        m_rest = m_rest.subspan(length);
        return segment;
    }

    bool readSize(Bytes segment)
    {
        constexpr std::size_t componentsOffset = 36;
        if (segment.size() < componentsOffset)
            return false;
        const auto field = [segment](
                               std::size_t offset) { return std::int64_t{bigEndian32(segment, offset)}; };
        const std::int64_t right = field(2);
        const std::int64_t bottom = field(6);
        const std::int64_t width = right - field(10);
        const std::int64_t height = bottom - field(14);
        const std::int64_t columns = tileCount(right - field(26), field(18));
        const std::int64_t rows = tileCount(bottom - field(30), field(22));
        m_result.components = wordAt(segment, 34);
        if (!isAcceptable(width, height) || width * height > largestPicture || columns < 1
            || columns > mostTiles || rows < 1 || rows > mostTiles || columns * rows > mostTiles
            || m_result.components < 1 || m_result.components > 4)
            return false;
        m_result.size = {static_cast<int>(width), static_cast<int>(height)};

        // Of each component: 8 bits without sign, as large as the picture.
        const Bytes components = segment.subspan(componentsOffset);
        for (std::size_t i = 0; i + 2 < components.size(); i += 3) {
            if (byteAt(components, i) != 7 || byteAt(components, i + 1) != 1
                || byteAt(components, i + 2) != 1)
                return false;
        }
        return components.size() == 3 * static_cast<std::size_t>(m_result.components);
    }

    bool readMainSegment(std::uint32_t type, Bytes segment)
    {
        switch (type) {
        case marker::codingStyle:
            m_hasStyle = true;
            return segment.size() >= 10 && wordAt(segment, 2) <= mostLayers
                && readCodingStyle(segment.subspan(5), (byteAt(segment, 0) & 1) != 0);
        case marker::codingStyleOfComponent:
            return segment.size() >= 7 && readCodingStyle(segment.subspan(2), (byteAt(segment, 1) & 1) != 0);
        default:
            return type == marker::quantization || type == marker::quantizationOfComponent
                || type == marker::comment || type == marker::tilePartLengths;
        }
    }

    bool readCodingStyle(Bytes style, bool hasPrecincts)
    {
        constexpr std::size_t precinctsOffset = 5;
        constexpr int oneSegmentPerBlock = 0x3A; // the modes of coding that leave it so
        const int halvings = byteAt(style, 0);
        m_result.halvings = std::min(m_result.halvings, halvings);
        const int block = byteAt(style, 1) + 2 + byteAt(style, 2) + 2;
        const std::size_t wanted = hasPrecincts ? static_cast<std::size_t>(halvings) + 1 : 0;
        if (halvings > 32 || block < smallestBlock || (byteAt(style, 3) & ~oneSegmentPerBlock) != 0
            || style.size() < precinctsOffset + wanted)
            return false;
        return std::ranges::all_of(style.subspan(precinctsOffset, wanted), [](std::byte precinct) {
            const int edges = std::to_integer<int>(precinct);
            return (edges & 15) >= smallestPrecinct && edges >> 4 >= smallestPrecinct;
        });
    }

    // A part of a tile may repeat the segments of the main header with other values: refused, because only
    // the main header can be judged before the decoder has begun.
    bool readTilePart()
    {
        constexpr std::size_t headSize = 12;
        const Bytes head = nextSegment();
        if (head.size() != headSize - 4)
            return false;

        // No length stands for all that is left. One that is too short ends the decoding.
        const std::size_t length = bigEndian32(head, 2);
        const std::size_t size =
            length < headSize ? m_rest.size() : std::min(length - headSize, m_rest.size());
        const Bytes behind = m_rest.subspan(size);
        m_rest = m_rest.first(size);
        for (std::uint32_t type = nextMarker(); type != marker::startOfData; type = nextMarker()) {
            if (type != marker::comment && type != marker::packetLengths)
                return false;
            nextSegment();
        }
        m_rest = behind;
        return true;
    }

    Bytes m_rest;
    bool m_hasStyle = false;
    Codestream m_result;
};

} // namespace

std::optional<Codestream> readCodestream(Bytes codestream)
{
    return Reader(codestream).read();
}
