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

/// The folder, which is this run's alone as long as the descriptor is open.
Result<int> lockedFolder(const Path& folder, const Path& target)
{
    if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
        return cannot("write"_L1, target, lastError());
    const int lock = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
    if (lock < 0)
        return cannot("write"_L1, target, lastError());
    const std::error_code refused = flock(lock, LOCK_EX | LOCK_NB) == 0 ? std::error_code() : lastError();
    // The run that had it may have removed it just before this one got it.
    std::error_code error;
    if (!refused && fs::equivalent("/proc/self/fd/" + std::to_string(lock), folder, error))
        return lock;
    close(lock);
    if (refused && refused != std::errc::operation_would_block)
        return cannot("lock"_L1, folder, refused);
    return tl::unexpected(Failure{packDomain, 1, u"another run is writing %1"_s.arg(toText(target))});
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

Result<std::unique_ptr<Staging>> Staging::beside(const Path& target)
{
    std::error_code error;
    Path real = fs::weakly_canonical(fs::absolute(target, error), error);
    if (error)
        return cannot("write"_L1, target, error);
    if (!real.has_filename())
        real = real.parent_path();
    Path folder = real.parent_path() / ('.' + real.filename().string() + ".new");
    return lockedFolder(folder, target).map([&](int lock) {
        clear(folder);
        return std::unique_ptr<Staging>(new Staging(std::move(real), std::move(folder), lock));
    });
}

Staging::Staging(Path target, Path folder, int lock)
    : m_target(std::move(target)), m_folder(std::move(folder)), m_lock(lock)
{
}

Staging::~Staging()
{
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
    std::error_code error;
    const bool isThere = fs::exists(fs::symlink_status(m_target, error));
    const unsigned how = isThere ? RENAME_EXCHANGE : RENAME_NOREPLACE;
    // Once before, so that the name leads to a whole tree, and once for the name itself.
    if (syncfs(m_lock) != 0 || renameat2(AT_FDCWD, place().c_str(), AT_FDCWD, m_target.c_str(), how) != 0
        || syncfs(m_lock) != 0)
        return cannot("write"_L1, m_target, lastError());
    return {};
}
