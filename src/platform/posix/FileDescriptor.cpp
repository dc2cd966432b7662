#include "platform/posix/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

FileDescriptor::FileDescriptor(int number) : m_number(number) { }

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1))
{
}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept
{
    FileDescriptor taken(std::move(other));
    std::swap(m_number, taken.m_number);
    return *this;
}

FileDescriptor::~FileDescriptor()
{
    if (isOpen())
        close(m_number);
}

Result<std::size_t> FileDescriptor::read(std::span<std::byte> room) const
{
    std::size_t filled = 0;
    while (filled < room.size()) {
        const ssize_t count = ::read(m_number, room.data() + filled, room.size() - filled);
        if (count == 0)
            break;
        if (count > 0)
            filled += static_cast<std::size_t>(count);
        else if (errno != EINTR)
            return tl::unexpected(systemFailure(errno));
    }
    return filled;
}

Result<ReadableFile> openForReading(const Path& file)
{
    // The system would read such a name only up to there.
    if (file.native().find('\0') != std::string::npos)
        return tl::unexpected(systemFailure(ENOENT));
    // Opening a pipe without O_NONBLOCK waits for its writer. Reading a regular file does not know the flag.
    FileDescriptor descriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status { };
    if (!descriptor.isOpen() || fstat(descriptor.number(), &status) != 0)
        return tl::unexpected(systemFailure(errno));
    if (S_ISDIR(status.st_mode))
        return tl::unexpected(systemFailure(EISDIR));
    if (!S_ISREG(status.st_mode))
        return tl::unexpected(systemFailure(EOPNOTSUPP));
    return ReadableFile{std::move(descriptor), static_cast<std::size_t>(status.st_size)};
}
