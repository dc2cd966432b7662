#include "platform/posix/AtomicWrite.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

constexpr std::string_view namePrefix = ".plovistore-";

Path temporaryName(const Path& folder)
{
    return folder / (std::string(namePrefix) + std::to_string(QRandomGenerator::system()->generate64()));
}

bool isTemporaryName(std::string_view name)
{
    return name.starts_with(namePrefix)
        && name.find_first_not_of("0123456789", namePrefix.size()) == std::string_view::npos;
}

// Whoever writes such a file holds a lock on it.
void clearLeftovers(const Path& folder)
{
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (!isTemporaryName(entry->path().filename().native()))
            continue;
        // Over a network only what may be written can be locked; elsewhere a file that may only be read can
        // be too.
        for (const int access : {O_RDWR, O_RDONLY}) {
            const FileDescriptor leftover(
                open(entry->path().c_str(), access | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
            if (leftover.isOpen() && flock(leftover.number(), LOCK_EX | LOCK_NB) == 0)
                unlink(entry->path().c_str());
        }
    }
}

// The system's own attributes ("security.") tell of the former content, or are for the system to set.
void copyAttributes(const Path& from, int to)
{
    std::array<char, 65536> names{};
    std::array<char, 65536> value{};
    const ssize_t size = listxattr(from.c_str(), names.data(), names.size());
    for (const char* name = names.data(); name < names.data() + size; name += std::strlen(name) + 1) {
        const ssize_t length = getxattr(from.c_str(), name, value.data(), value.size());
        if (length >= 0 && !std::string_view(name).starts_with("security."))
            fsetxattr(to, name, value.data(), std::size_t(length), 0);
    }
}

// Not every file system keeps these, and not every user may set them: none of it is a failure.
void handOn(const Path& former, int file)
{
    struct stat status { };
    if (stat(former.c_str(), &status) != 0)
        return;
    if (fchown(file, status.st_uid, status.st_gid) != 0)
        std::ignore = fchown(file, uid_t(-1), status.st_gid);
    copyAttributes(former, file);
    fchmod(file, status.st_mode & 0777);
}

// The new name reaches the disk at once. The file has been replaced already, so that a failure would change
// nothing; some file systems know no such flush.
void flushFolder(const Path& folder)
{
    const FileDescriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    fsync(descriptor.number());
}

} // namespace

AtomicWrite::AtomicWrite(const Path& destination) : m_error(findDestination(destination))
{
    if (m_error == 0)
        m_error = create();
}

AtomicWrite::~AtomicWrite()
{
    if (!m_temporary.empty())
        unlink(m_temporary.c_str());
}

int AtomicWrite::findDestination(const Path& destination)
{
    std::error_code error;
    m_destination = std::filesystem::canonical(destination, error);
    if (error == std::errc::no_such_file_or_directory) {
        // A link may lead to a file that is yet to be made.
        Path place = destination;
        while (is_symlink(std::filesystem::symlink_status(place, error)))
            place = place.parent_path() / read_symlink(place, error);
        m_destination = std::filesystem::absolute(place, error);
    }
    if (error)
        return error.value();
    m_folder = m_destination.parent_path();
    const auto type = std::filesystem::status(m_destination, error).type();
    if (type == std::filesystem::file_type::directory)
        return EISDIR;
    const bool isReplaceable =
        type == std::filesystem::file_type::regular || type == std::filesystem::file_type::not_found;
    return isReplaceable ? 0 : EOPNOTSUPP;
}

int AtomicWrite::create()
{
    clearLeftovers(m_folder);
    m_file = FileDescriptor(open(m_folder.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0666));
    if (m_file.isOpen())
        flock(m_file.number(), LOCK_EX | LOCK_NB);
    else if (const int error = createNamed(); error != 0)
        return error;
    // Past the system's cache: filling fresh pages of it takes several times as long as the disk does.
    fcntl(m_file.number(), F_SETFL, O_DIRECT);
    return 0;
}

// Not every file system knows files without a name. If it was something else, this fails too.
int AtomicWrite::createNamed()
{
    do {
        const Path name = temporaryName(m_folder);
        m_file = FileDescriptor(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (!m_file.isOpen())
            return errno;
        m_temporary = name;
        flock(m_file.number(), LOCK_EX);
        // Another save takes the file for a leftover, and clears it, as long as nobody holds the lock.
    } while (access(m_temporary.c_str(), F_OK) != 0 && errno == ENOENT);
    return 0;
}

void AtomicWrite::write(Files::Bytes content)
{
    while (m_error == 0 && !content.empty()) {
        const ssize_t count = ::write(m_file.number(), content.data(), content.size());
        if (count > 0)
            content = content.subspan(std::size_t(count));
        else if (count == 0)
            m_error = EIO;
        else if (errno == EINVAL && fcntl(m_file.number(), F_GETFL) & O_DIRECT)
            // Only whole pages go past the cache, and not on every file system.
            fcntl(m_file.number(), F_SETFL, 0);
        else if (errno != EINTR)
            m_error = errno;
    }
}

int AtomicWrite::giveName()
{
    if (!m_temporary.empty())
        return 0;
    const Path unnamed = "/proc/self/fd/" + std::to_string(m_file.number());
    const Path name = temporaryName(m_folder);
    if (linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0)
        return errno;
    m_temporary = name;
    return 0;
}

Result<void> AtomicWrite::commit()
{
    if (m_error == 0) {
        handOn(m_destination, m_file.number());
        m_error = fsync(m_file.number()) == 0 ? giveName() : errno;
    }
    if (m_error == 0 && rename(m_temporary.c_str(), m_destination.c_str()) != 0)
        m_error = errno;
    if (m_error != 0)
        return tl::unexpected(systemFailure(m_error));
    m_temporary.clear();
    flushFolder(m_folder);
    return {};
}
