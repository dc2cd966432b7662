#pragma once

#include "platform/desktop/FolderWatch.h"

#include <QHash>

#include <optional>
#include <utility>

/// The bundles that lie in one folder, or in a folder in it, indexed by identifier. The index follows the
/// disk: whatever another program adds, removes, renames, replaces or edits there shows at the next look. One
/// thread.
class ApplicationFolder {
public:
    /// The folder need not exist yet.
    explicit ApplicationFolder(Path folder);

    /// The bundle with this identifier. If there are several: the one that lies directly in the folder, then
    /// the first by its path.
    std::optional<Path> bundleWithIdentifier(const QString& identifier);

private:
    void refresh();
    void scan();
    std::vector<Path> watchedContent(const Path& folder);
    void add(const Path& bundle);

    Path m_folder;
    /// Device and inode, which tell whether the path still leads to the folder that was scanned.
    std::pair<dev_t, ino_t> m_identity;
    FolderWatch m_watch;
    QHash<QString, Path> m_bundles;
};
