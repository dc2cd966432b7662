#include "platform/posix/AtomicWrite.h"

#include "platform/posix/FileDescriptor.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <utility>

namespace {

constexpr int mostLinks = 40;
constexpr std::size_t blockSize = std::size_t{8} << 20;
constexpr std::size_t directAlignment = 4096;

tl::unexpected<Failure> failed(int errorNumber)
{
    return tl::unexpected(systemFailure(errorNumber));
}

Result<Path> behindLinks(Path file)
{
    for (int link = 0; link < mostLinks; ++link) {
        std::error_code error;
        const Path target = std::filesystem::read_symlink(file, error);
        if (error)
            return file;
        file = file.parent_path() / target;
    }
    return failed(ELOOP);
}

/// What a new file at this place may be read and written by.
struct Permissions {
    mode_t mode = 0666;
    bool areThoseOfFormerFile = false;
};

Result<Permissions> permissionsFor(const Path& file)
{
    struct stat former { };
    if (stat(file.c_str(), &former) != 0)
        return errno == ENOENT ? Result<Permissions>(Permissions{}) : failed(errno);
    if (S_ISDIR(former.st_mode))
        return failed(EISDIR);
    if (!S_ISREG(former.st_mode))
        return failed(EOPNOTSUPP);
    return Permissions{former.st_mode & 0777, true};
}

class TemporaryFile {
public:
    TemporaryFile(TemporaryFile&& other) noexcept
        : m_path(std::exchange(other.m_path, {})), m_descriptor(std::move(other.m_descriptor))
    {
    }
    TemporaryFile& operator=(TemporaryFile&&) = delete;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile()
    {
        if (!m_path.empty())
            unlink(m_path.c_str());
    }

    static Result<TemporaryFile> createIn(const Path& folder, const Permissions& permissions)
    {
        while (true) {
            const auto number = QRandomGenerator::system()->generate64();
            Path path = folder / (".plovistore-" + std::to_string(number));
            FileDescriptor descriptor(
                open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions.mode));
            if (!descriptor.isOpen() && errno == EEXIST)
                continue;
            if (!descriptor.isOpen())
                return failed(errno);
            // Where the file system keeps no permissions, all its files have the same.
            if (permissions.areThoseOfFormerFile)
                std::ignore = fchmod(descriptor.number(), permissions.mode);
            return TemporaryFile(std::move(path), std::move(descriptor));
        }
    }

    Result<void> write(std::span<const std::byte> content)
    {
        const std::size_t direct = writeDirectly(content);
        return writeRest(content.subspan(direct));
    }

    Result<void> flush()
    {
        if (fsync(m_descriptor.number()) != 0)
            return failed(errno);
        return {};
    }

    Result<void> moveTo(const Path& file)
    {
        if (rename(m_path.c_str(), file.c_str()) != 0)
            return failed(errno);
        m_path.clear();
        return {};
    }

private:
    TemporaryFile(Path path, FileDescriptor descriptor)
        : m_path(std::move(path)), m_descriptor(std::move(descriptor))
    {
    }

    // Past the system's cache: filling fresh pages of it takes several times as long as the disk does. Only
    // whole blocks of aligned memory can go this way, and not every file system knows it; whatever stops it,
    // the rest is written the ordinary way, which also tells what is wrong. Returns how much was written.
    std::size_t writeDirectly(std::span<const std::byte> content)
    {
        const bool isAligned = reinterpret_cast<std::uintptr_t>(content.data()) % directAlignment == 0;
        if (!isAligned || content.size() < blockSize || fcntl(m_descriptor.number(), F_SETFL, O_DIRECT) != 0)
            return 0;

        std::size_t written = 0;
        while (content.size() - written >= blockSize) {
            const ssize_t count = ::write(m_descriptor.number(), content.data() + written, blockSize);
            if (count < 0)
                break;
            written += static_cast<std::size_t>(count);
        }
        fcntl(m_descriptor.number(), F_SETFL, 0);
        return written;
    }

    Result<void> writeRest(std::span<const std::byte> content)
    {
        while (!content.empty()) {
            const ssize_t count = ::write(m_descriptor.number(), content.data(), content.size());
            if (count < 0 && errno != EINTR)
                return failed(errno);
            content = content.subspan(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        }
        return {};
    }

    Path m_path;
    FileDescriptor m_descriptor;
};

// The new name reaches the disk at once. The file has been replaced already, so that a failure would change
// nothing; some file systems know no such flush.
void flushFolder(const Path& folder)
{
    const FileDescriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen())
        fsync(descriptor.number());
}

} // namespace

Result<void> writeAtomically(const Path& file, std::span<const std::byte> content)
{
    const auto target = behindLinks(file);
    if (!target)
        return tl::unexpected(target.error());
    const auto permissions = permissionsFor(*target);
    if (!permissions)
        return tl::unexpected(permissions.error());

    const Path folder = target->has_parent_path() ? target->parent_path() : Path(".");
    auto temporary = TemporaryFile::createIn(folder, *permissions);
    if (!temporary)
        return tl::unexpected(temporary.error());

    return temporary->write(content)
        .and_then([&] { return temporary->flush(); })
        .and_then([&] { return temporary->moveTo(*target); })
        .map([&] { flushFolder(folder); });
}
