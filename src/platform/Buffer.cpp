#include "platform/Buffer.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace {

constexpr std::size_t largePage = std::size_t{2} << 20;

std::size_t roundedUp(std::size_t size, std::size_t step)
{
    return (size + step - 1) / step * step;
}

enum class Touch { Later, AtOnce };

std::byte* map(std::size_t size, Touch touch)
{
    // All of a small block is written soon: the system makes its pages in one go for less than one by one.
    const int flags = MAP_PRIVATE | MAP_ANONYMOUS | (touch == Touch::AtOnce ? MAP_POPULATE : 0);
    void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, flags, -1, 0);
    return memory == MAP_FAILED ? nullptr : static_cast<std::byte*>(memory);
}

// A large page lies on a multiple of its own size, which older kernels do not choose by themselves.
std::byte* mapLargePages(std::size_t size)
{
    std::byte* memory = map(size + largePage, Touch::Later);
    if (!memory)
        return nullptr;

    const auto address = reinterpret_cast<std::uintptr_t>(memory);
    const std::size_t before = roundedUp(address, largePage) - address;
    const std::size_t after = largePage - before;
    if (before > 0)
        munmap(memory, before);
    if (after > 0)
        munmap(memory + before + size, after);

    madvise(memory + before, size, MADV_HUGEPAGE);
    return memory + before;
}

} // namespace

Buffer::Buffer(Buffer&& other) noexcept
    : m_data(std::exchange(other.m_data, nullptr))
    , m_size(std::exchange(other.m_size, 0))
    , m_reserved(std::exchange(other.m_reserved, 0))
{
}

Buffer& Buffer::operator=(Buffer&& other) noexcept
{
    Buffer taken(std::move(other));
    std::swap(m_data, taken.m_data);
    std::swap(m_size, taken.m_size);
    std::swap(m_reserved, taken.m_reserved);
    return *this;
}

Buffer::~Buffer()
{
    if (m_data)
        munmap(m_data, m_reserved);
}

std::optional<Buffer> Buffer::allocate(std::size_t size)
{
    if (size > std::numeric_limits<std::size_t>::max() / 2)
        return std::nullopt;

    Buffer buffer;
    if (size > 0) {
        const bool isLarge = size >= largePage;
        buffer.m_reserved = isLarge ? roundedUp(size, largePage) : size;
        buffer.m_data = isLarge ? mapLargePages(buffer.m_reserved) : map(size, Touch::AtOnce);
        if (!buffer.m_data)
            return std::nullopt;
    }
    buffer.m_size = size;
    return buffer;
}

std::optional<Buffer> Buffer::copyOf(std::span<const std::byte> content)
{
    auto buffer = allocate(content.size());
    if (buffer)
        std::ranges::copy(content, buffer->m_data);
    return buffer;
}

void Buffer::shrink(std::size_t size)
{
    m_size = std::min(m_size, size);
}
