// Puts the checksums of a changed PNG file right, without which nothing behind them would be tried.
#include <zlib.h>

#include <algorithm>
#include <cstddef>
#include <span>

extern "C" std::size_t LLVMFuzzerMutate(unsigned char* data, std::size_t size, std::size_t mostBytes);

namespace {

std::size_t numberAt(std::span<const unsigned char> bytes)
{
    return std::size_t(bytes[0]) << 24 | std::size_t(bytes[1]) << 16 | std::size_t(bytes[2]) << 8 | bytes[3];
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(
    unsigned char* data, std::size_t size, std::size_t mostBytes, unsigned int /*seed*/)
{
    constexpr std::size_t signature = 8;
    constexpr std::size_t frame = 12;
    const std::size_t mutated = LLVMFuzzerMutate(data, size, mostBytes);
    std::span rest(data, mutated);
    rest = rest.subspan(std::min(signature, rest.size()));
    while (rest.size() >= frame && numberAt(rest) <= rest.size() - frame) {
        const std::size_t length = numberAt(rest);
        const auto checksum = crc32(0, rest.data() + 4, static_cast<unsigned>(length + 4));
        for (std::size_t i = 0; i < 4; ++i)
            rest[8 + length + i] = static_cast<unsigned char>(checksum >> (24 - 8 * i));
        rest = rest.subspan(length + frame);
    }
    return mutated;
}
