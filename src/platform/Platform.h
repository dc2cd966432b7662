#pragma once

#include "platform/Bundles.h"
#include "platform/Files.h"
#include "platform/Jobs.h"
#include "platform/SavePanel.h"
#include "platform/UserFolders.h"
#include "platform/Workspace.h"

/// The machine as the program sees it: one role for each kind of service. The only thing that is global, so
/// that an entry can say where its archive lies without being handed the machine.
struct Platform {
    Bundles& bundles;
    Files& files;
    UserFolders& userFolders;
    Workspace& workspace;
    SavePanel& savePanel;
    Jobs& jobs;

    /// The platform installed last. There must be one.
    static const Platform& current();
};

/// Installs a platform for as long as the scope lives; the one before comes back afterwards. Main thread.
class PlatformScope {
public:
    explicit PlatformScope(const Platform& platform);
    ~PlatformScope();
    PlatformScope(const PlatformScope&) = delete;
    PlatformScope& operator=(const PlatformScope&) = delete;

private:
    Platform m_platform;
    const Platform* m_before;
};
