#include "pack/files/Staging.h"

#include "pack/files/FileAccess.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

bool isSamePlace(int descriptor, const Path& path)
{
    struct stat one { };
    struct stat other { };
    return fstat(descriptor, &one) == 0 && lstat(path.c_str(), &other) == 0 && one.st_ino == other.st_ino
        && one.st_dev == other.st_dev;
}

Result<void> flush(const Path& place)
{
    const int descriptor = open(place.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    const bool done = descriptor >= 0 && fsync(descriptor) == 0;
    const std::error_code error = lastError();
    if (descriptor >= 0)
        close(descriptor);
    if (!done)
        return cannot("write"_L1, place, error);
    return {};
}

Result<void> flushTree(const Path& folder)
{
    std::error_code error;
    for (fs::recursive_directory_iterator place(folder, error), end; !error && place != end;
         place.increment(error)) {
        if (place->is_symlink(error))
            continue;
        if (auto flushed = flush(place->path()); !flushed)
            return flushed;
    }
    if (error)
        return cannot("read"_L1, folder, error);
    return flush(folder);
}

/// The folder, which is this run's alone as long as the descriptor is open.
Result<int> lockedFolder(const Path& folder, const Path& target)
{
    for (;;) {
        if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
            return cannot("write"_L1, target, lastError());
        const int lock = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
        if (lock < 0 && errno == ENOENT)
            continue;
        if (lock < 0)
            return cannot("write"_L1, target, lastError());
        if (flock(lock, LOCK_EX | LOCK_NB) != 0) {
            const bool isTaken = errno == EWOULDBLOCK;
            const std::error_code error = lastError();
            close(lock);
            if (!isTaken)
                return cannot("lock"_L1, folder, error);
            return tl::unexpected(Failure{packDomain, 1, u"another run is writing %1"_s.arg(toText(target))});
        }
        // The run that had it may have removed it just before this one got it.
        if (isSamePlace(lock, folder))
            return lock;
        close(lock);
    }
}

void clear(const Path& folder)
{
    std::error_code error;
    for (fs::directory_iterator place(folder, error), end; !error && place != end; place.increment(error)) {
        std::error_code ignored;
        fs::remove_all(place->path(), ignored);
    }
}

} // namespace

Result<Staging> Staging::beside(const Path& target)
{
    std::error_code error;
    Path real = fs::weakly_canonical(fs::absolute(target, error), error);
    if (error)
        return cannot("write"_L1, target, error);
    if (!real.has_filename())
        real = real.parent_path();
    if (!fs::is_directory(real.parent_path(), error))
        return cannot("write"_L1, target, std::make_error_code(std::errc::no_such_file_or_directory));
    Path folder = real.parent_path() / ('.' + real.filename().string() + ".new");
    const auto lock = lockedFolder(folder, target);
    if (!lock)
        return tl::unexpected(lock.error());
    clear(folder);
    return Staging(std::move(real), std::move(folder), *lock);
}

Staging::Staging(Path target, Path folder, int lock)
    : m_target(std::move(target)), m_folder(std::move(folder)), m_lock(lock)
{
}

Staging::Staging(Staging&& other) noexcept
    : m_target(std::move(other.m_target))
    , m_folder(std::move(other.m_folder))
    , m_lock(std::exchange(other.m_lock, -1))
{
}

Staging::~Staging()
{
    if (m_lock < 0)
        return;
    clear(m_folder);
    rmdir(m_folder.c_str());
    close(m_lock);
}

Path Staging::place() const
{
    return m_folder / m_target.filename();
}

Result<void> Staging::publish()
{
    if (auto flushed = flushTree(place()); !flushed)
        return flushed;
    std::error_code error;
    const bool isThere = fs::exists(fs::symlink_status(m_target, error));
    const unsigned how = isThere ? RENAME_EXCHANGE : RENAME_NOREPLACE;
    if (renameat2(AT_FDCWD, place().c_str(), AT_FDCWD, m_target.c_str(), how) != 0)
        return cannot("write"_L1, m_target, lastError());
    return flush(m_target.parent_path());
}
