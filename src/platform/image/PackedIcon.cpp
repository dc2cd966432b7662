#include "platform/image/PackedIcon.h"

#include <algorithm>

namespace {

constexpr std::uint32_t argbWord = 0x41524742; // ARGB
constexpr std::size_t wordSize = 4;

struct Samples {
    std::vector<std::uint32_t> values;
    bool usedAllBytes = false;
};

// As many samples as the bytes yield, at most `wanted`.
Samples unpack(Bytes packed, std::size_t wanted)
{
    Samples samples;
    samples.values.reserve(wanted);
    auto& values = samples.values;
    std::size_t at = 0;
    while (at < packed.size() && values.size() < wanted) {
        const auto lead = std::to_integer<std::size_t>(packed[at++]);
        const std::size_t room = wanted - values.size();
        if (lead < 128) {
            const std::size_t count = std::min({lead + 1, room, packed.size() - at});
            for (const std::byte sample : packed.subspan(at, count))
                values.push_back(std::to_integer<std::uint32_t>(sample));
            at += count;
        } else if (at < packed.size()) {
            values.insert(
                values.end(), std::min(lead - 125, room), std::to_integer<std::uint32_t>(packed[at++]));
        }
    }
    samples.usedAllBytes = at == packed.size();
    return samples;
}

std::size_t pixelCount(int edge)
{
    return static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge);
}

} // namespace

std::optional<Image> decodePackedRgb(Bytes content, Bytes mask, int edge)
{
    const std::size_t count = pixelCount(edge);
    const Samples planes = unpack(content, 3 * count);
    const bool isPacked = planes.values.size() == 3 * count;
    const bool isUnpacked = content.size() == 3 * count && !(isPacked && planes.usedAllBytes);
    if (!isPacked && !isUnpacked)
        return std::nullopt;

    const auto sample = [&](std::size_t pixel, std::size_t channel) {
        return isUnpacked ? std::to_integer<std::uint32_t>(content[3 * pixel + channel])
                          : planes.values[channel * count + pixel];
    };
    Image image = blankImage({edge, edge});
    for (std::size_t pixel = 0; pixel < count; ++pixel) {
        const auto alpha = mask.size() == count ? std::to_integer<std::uint32_t>(mask[pixel]) : 255;
        image.pixels[pixel] = packedPixel(alpha, sample(pixel, 0), sample(pixel, 1), sample(pixel, 2));
    }
    return image;
}

bool isPackedArgb(Bytes content)
{
    return content.size() >= wordSize && bigEndian32(content, 0) == argbWord;
}

std::optional<Image> decodePackedArgb(Bytes content, int edge)
{
    const std::size_t count = pixelCount(edge);
    const auto samples = unpack(content.subspan(wordSize), 4 * count).values;
    if (samples.size() < 4 * count)
        return std::nullopt;

    Image image = blankImage({edge, edge});
    for (std::size_t pixel = 0; pixel < count; ++pixel)
        image.pixels[pixel] = packedPixel(
            samples[pixel], samples[count + pixel], samples[2 * count + pixel], samples[3 * count + pixel]);
    return image;
}
