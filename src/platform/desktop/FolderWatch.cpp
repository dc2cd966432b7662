#include "platform/desktop/FolderWatch.h"

#include <sys/inotify.h>
#include <sys/vfs.h>

#include <linux/magic.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <unistd.h>

namespace {

constexpr std::uint32_t changes = IN_CREATE | IN_DELETE | IN_MOVE | IN_MODIFY | IN_ATTRIB | IN_DELETE_SELF
    | IN_MOVE_SELF | IN_ONLYDIR | IN_EXCL_UNLINK;

/// The system does not hear what another machine, or another program's file system, does behind it.
bool isElsewhere(const Path& folder)
{
    constexpr auto kinds = std::to_array<std::uint32_t>({NFS_SUPER_MAGIC, SMB_SUPER_MAGIC, SMB2_SUPER_MAGIC,
        CIFS_SUPER_MAGIC, AFS_SUPER_MAGIC, CODA_SUPER_MAGIC, CEPH_SUPER_MAGIC, V9FS_MAGIC, FUSE_SUPER_MAGIC});
    struct statfs status { };
    return ::statfs(folder.c_str(), &status) == 0
        && std::ranges::find(kinds, std::uint32_t(status.f_type)) != kinds.end();
}

} // namespace

FolderWatch::FolderWatch() : m_descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) { }

FolderWatch::~FolderWatch()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void FolderWatch::restart()
{
    m_isReliable = m_descriptor >= 0;
}

void FolderWatch::add(const Path& folder)
{
    if (::inotify_add_watch(m_descriptor, folder.c_str(), changes) < 0 ? errno == ENOSPC || errno == ENOMEM
                                                                       : isElsewhere(folder))
        m_isReliable = false;
}

bool FolderWatch::takeChange()
{
    bool hasChanged = !m_isReliable;
    alignas(inotify_event) std::array<char, 4096> events;
    while (::read(m_descriptor, events.data(), events.size()) > 0)
        hasChanged = true;
    return hasChanged;
}
