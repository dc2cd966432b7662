#include "platform/posix/PosixFiles.h"

#include "platform/posix/AtomicWrite.h"
#include "platform/posix/FileDescriptor.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>

namespace {

constexpr std::size_t blockSize = std::size_t{256} << 10;

Result<Buffer> allocate(std::size_t size)
{
    if (auto buffer = Buffer::allocate(size))
        return std::move(*buffer);
    return tl::unexpected(systemFailure(ENOMEM));
}

Result<Buffer> enlarged(const Buffer& buffer)
{
    auto larger = allocate(2 * buffer.size());
    if (larger)
        std::ranges::copy(buffer.bytes(), larger->bytes().begin());
    return larger;
}

Result<ReadableFile> openForReadingThrough(const Path& file)
{
    auto opened = openForReading(file);
    if (opened)
        posix_fadvise(opened->descriptor.number(), 0, 0, POSIX_FADV_SEQUENTIAL);
    return opened;
}

} // namespace

Result<Buffer> PosixFiles::read(const Path& file) const
{
    const auto opened = openForReadingThrough(file);
    if (!opened)
        return tl::unexpected(opened.error());

    // One byte more than the file holds: a buffer that is not full has met the end, and one that is full has
    // to grow.
    auto buffer = allocate(std::max(opened->size, blockSize) + 1);
    std::size_t filled = 0;
    while (buffer) {
        const auto count = opened->descriptor.read(buffer->bytes().subspan(filled));
        if (!count)
            return tl::unexpected(count.error());
        filled += *count;
        if (filled < buffer->size()) {
            buffer->shrink(filled);
            break;
        }
        buffer = enlarged(*buffer);
    }
    return buffer;
}

Result<void> PosixFiles::readInBlocks(const Path& file, const Sink& sink) const
{
    const auto opened = openForReadingThrough(file);
    if (!opened)
        return tl::unexpected(opened.error());
    auto buffer = allocate(blockSize);
    if (!buffer)
        return tl::unexpected(buffer.error());

    std::size_t filled = blockSize;
    while (filled == blockSize) {
        const auto count = opened->descriptor.read(buffer->bytes());
        if (!count)
            return tl::unexpected(count.error());
        filled = *count;
        if (filled > 0)
            sink(buffer->bytes().first(filled));
    }
    return {};
}

Result<void> PosixFiles::writeAtomically(const Path& file, std::span<const std::byte> content) const
{
    return ::writeAtomically(file, content);
}
