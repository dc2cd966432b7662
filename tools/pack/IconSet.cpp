#include "pack/IconSet.h"

#include <QtEndian>

#include <array>
#include <string_view>

namespace {

struct Representation {
    std::string_view type;
    int edge;
};

constexpr std::array<Representation, 7> representations{{
    {"icp4", 16},
    {"icp5", 32},
    {"icp6", 64},
    {"ic07", 128},
    {"ic08", 256},
    {"ic09", 512},
    {"ic10", 1024},
}};

/// A block of the format: four letters, its whole length, its content.
QByteArray block(std::string_view type, const QByteArray& content)
{
    const auto length = qToBigEndian(static_cast<quint32>(8 + content.size()));

    QByteArray bytes(type.data(), static_cast<qsizetype>(type.size()));
    bytes.append(reinterpret_cast<const char*>(&length), sizeof length);
    return bytes.append(content);
}

} // namespace

QByteArray iconSet(const Drawing& drawing)
{
    QByteArray entries;
    for (const auto& [type, edge] : representations)
        entries.append(block(type, drawing.png(edge)));
    return block("icns", entries);
}
