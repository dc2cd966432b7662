#pragma once

#include "platform/Path.h"

#include <QHash>

#include <chrono>
#include <optional>
#include <vector>

/// The bundles that lie directly in one folder, indexed by identifier. The index follows the folder: whatever
/// another program adds, removes, renames or replaces there shows at the next look. One thing it cannot see
/// without opening every bundle: an identifier that a bundle, edited in place, has only just taken on; it
/// shows as soon as the bundle's former identifier is looked up, or the folder changes. One thread.
class ApplicationFolder {
public:
    /// The folder need not exist yet.
    explicit ApplicationFolder(Path folder);

    /// The bundle with this identifier, the first by name if there are several.
    std::optional<Path> bundleWithIdentifier(const QString& identifier);

private:
    using Time = std::chrono::sys_time<std::chrono::nanoseconds>;

    /// What tells a changed folder from an unchanged one.
    struct State {
        dev_t device = 0;
        ino_t inode = 0;
        Time changed;

        bool operator==(const State&) const = default;
    };

    std::optional<State> currentState() const;
    void refresh();
    void scan();
    bool add(const Path& bundle);

    Path m_folder;
    std::optional<State> m_state;
    bool m_isTrusted = false;
    QHash<QString, Path> m_bundles;
    std::vector<Path> m_unfinished;
};
