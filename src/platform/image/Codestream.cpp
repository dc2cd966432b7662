#include "platform/image/Codestream.h"

#include <algorithm>
#include <cmath>

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

// More bit planes than this are an error to the decoder.
constexpr int mostBitPlanes = 30;

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

/// Reads the headers one after the other. What it keeps of several segments that say the same for different
/// components is the dearest.
class Reader {
public:
    explicit Reader(Bytes codestream) : m_rest(codestream) { m_result.length = codestream.size(); }

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
        const bool isComplete = type == marker::end && m_result.blocks > 0 && m_result.bitPlanes > 0;
        return isComplete ? std::optional(m_result) : std::nullopt;
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
        constexpr int mostTiles = 1024; // along each edge
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
        if (!isAcceptable(width, height) || columns < 1 || columns > mostTiles || rows < 1 || rows > mostTiles
            || m_result.components < 1 || m_result.components > 4)
            return false;
        m_result.size = {static_cast<int>(width), static_cast<int>(height)};
        m_result.tiles = static_cast<int>(columns * rows);
        m_tileWidth = std::min(width, field(18));
        m_tileHeight = std::min(height, field(22));

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
            if (segment.size() < 10)
                return false;
            m_result.layers = std::max(m_result.layers, wordAt(segment, 2));
            return readCodingStyle(segment.subspan(5), (byteAt(segment, 0) & 1) != 0);
        case marker::codingStyleOfComponent:
            return segment.size() >= 7 && readCodingStyle(segment.subspan(2), (byteAt(segment, 1) & 1) != 0);
        case marker::quantization:
            return readQuantization(segment);
        case marker::quantizationOfComponent:
            return !segment.empty() && readQuantization(segment.subspan(1));
        default:
            return type == marker::comment || type == marker::tilePartLengths;
        }
    }

    bool readCodingStyle(Bytes style, bool hasPrecincts)
    {
        constexpr std::size_t precinctsOffset = 5;
        constexpr int oneSegmentPerBlock = 0x3A; // the modes of coding that leave it so
        const int halvings = byteAt(style, 0);
        const int blockWidth = byteAt(style, 1) + 2; // as powers of two, like all lengths here
        const int blockHeight = byteAt(style, 2) + 2;
        const std::size_t wanted = hasPrecincts ? static_cast<std::size_t>(halvings) + 1 : 0;
        if (halvings > 32 || blockWidth > 10 || blockHeight > 10
            || (byteAt(style, 3) & ~oneSegmentPerBlock) != 0 || style.size() < precinctsOffset + wanted)
            return false;

        double blocks = 0;
        for (int resolution = 0; resolution <= halvings; ++resolution) {
            const int precinct =
                hasPrecincts ? byteAt(style, precinctsOffset + static_cast<std::size_t>(resolution)) : 0xFF;
            const int width = precinct & 15;
            const int height = precinct >> 4;
            const int halved = halvings - resolution;
            m_precinctWidth = std::min(m_precinctWidth, halved + width);
            m_precinctHeight = std::min(m_precinctHeight, halved + height);

            // Above the lowest resolution there are three bands of half its size.
            const int half = resolution > 0 ? 1 : 0;
            blocks += (1 + 2 * half)
                * cells(m_tileWidth, halved + half + std::min(blockWidth, std::max(width - half, 0)))
                * cells(m_tileHeight, halved + half + std::min(blockHeight, std::max(height - half, 0)));
        }
        m_result.fewestHalvings = std::min(m_result.fewestHalvings, halvings);
        m_result.mostHalvings = std::max(m_result.mostHalvings, halvings);
        m_result.blocks = std::max(m_result.blocks, blocks);
        m_result.precincts = cells(m_tileWidth, m_precinctWidth) * cells(m_tileHeight, m_precinctHeight);
        return true;
    }

    bool readQuantization(Bytes segment)
    {
        if (segment.empty())
            return false;
        const int guardBits = byteAt(segment, 0) >> 5;
        const bool isReversible = (byteAt(segment, 0) & 31) == 0;
        int exponent = 0;
        for (std::size_t i = 1; i < segment.size(); i += isReversible ? 1 : 2)
            exponent = std::max(exponent, byteAt(segment, i) >> 3);
        m_result.bitPlanes =
            std::clamp(guardBits + exponent - 1, std::max(m_result.bitPlanes, 1), mostBitPlanes);
        return true;
    }

    // A part of a tile may repeat the segments of the main header with other values: refused, because only
    // the main header can be judged before the decoder has begun (it tells of no precincts but the first).
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

    // How many cells of an edge of 2^exponent a length touches at most, wherever it begins.
    static double cells(std::int64_t length, int exponent)
    {
        return static_cast<double>((length >> exponent) + 2);
    }

    Bytes m_rest;
    std::int64_t m_tileWidth = 0;
    std::int64_t m_tileHeight = 0;
    int m_precinctWidth = 48;
    int m_precinctHeight = 48;
    Codestream m_result;
};

} // namespace

Effort Codestream::effort(int halvings) const
{
    const double tileComponents = double(tiles) * components;
    const double allBlocks = tileComponents * blocks;
    const double allPrecincts = tileComponents * (mostHalvings + 1) * precincts;
    const double packets = allPrecincts * layers;
    const double pixels =
        std::ceil(std::ldexp(size.width, -halvings)) * std::ceil(std::ldexp(size.height, -halvings));
    const double samples = pixels * components;
    return {.nanoseconds = 130 * packets + (1000 + 25.0 * layers) * allBlocks
            + (20 + 9.0 * bitPlanes) * samples + 20'000.0 * tiles + 40 * double(length),
        .bytes = 2 * packets + 600 * allPrecincts + (300 + 32.0 * layers) * allBlocks + 8 * samples
            + 4 * pixels + 12'000.0 * tiles + 2 * double(length)};
}

std::optional<Codestream> readCodestream(Bytes codestream)
{
    return Reader(codestream).read();
}
