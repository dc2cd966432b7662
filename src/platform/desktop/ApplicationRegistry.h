#pragma once

#include "platform/desktop/ApplicationFolder.h"

#include <list>

/// Where the applications of this machine lie: bundles in the given folders or one folder below, whatever
/// their file names, then desktop entries named `<identifier>.desktop`. Main thread.
class ApplicationRegistry {
public:
    /// Of several folders that hold a bundle, the first wins.
    explicit ApplicationRegistry(const std::vector<Path>& folders);

    /// The bundle, or the desktop entry's file, as of now. The first look reads all bundles.
    std::optional<Path> applicationWithIdentifier(const QString& identifier);

private:
    std::list<ApplicationFolder> m_folders;
};
