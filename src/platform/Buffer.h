#pragma once

#include <cstddef>
#include <optional>
#include <span>

/// A block of memory for the content of a whole file. Movable, not copyable; freed at once with the object.
/// Large blocks ask the system for large pages, because the first touch of a small page costs more than its
/// copy.
class Buffer {
public:
    Buffer() = default;
    Buffer(Buffer&& other) noexcept;
    Buffer& operator=(Buffer&& other) noexcept;
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    ~Buffer();

    /// A block of `size` bytes, all zero; none when the system has no room for it.
    static std::optional<Buffer> allocate(std::size_t size);
    /// A block that holds a copy of `content`; none when the system has no room for it.
    static std::optional<Buffer> copyOf(std::span<const std::byte> content);

    std::span<std::byte> bytes() { return {m_data, m_size}; }
    std::span<const std::byte> bytes() const { return {m_data, m_size}; }
    std::size_t size() const { return m_size; }
    /// Makes the block end after its first `size` bytes, at most its present size. Frees no memory.
    void shrink(std::size_t size);

private:
    std::byte* m_data = nullptr;
    std::size_t m_size = 0;
    std::size_t m_reserved = 0;
};
