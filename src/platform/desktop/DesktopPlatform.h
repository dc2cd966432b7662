#pragma once

#include "platform/Platform.h"
#include "platform/desktop/DesktopJobs.h"
#include "platform/desktop/DesktopSavePanel.h"
#include "platform/desktop/DesktopWorkspace.h"
#include "platform/posix/PosixBundles.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixUserFolders.h"

#include <QApplication>

/// The roles of this machine, installed as long as they live. Main thread.
struct DesktopPlatform {
    DesktopPlatform() = default;
    /// The main bundle is the one that `executable` lies in.
    explicit DesktopPlatform(const Path& executable) : bundles(executable) { }

    PosixBundles bundles;
    PosixFiles files;
    PosixUserFolders userFolders;
    // Outlives the jobs, whose last work still asks for the roles.
    PlatformScope scope{{bundles, files, userFolders, workspace, savePanel, jobs}};
    // Destroyed after the workspace, whose last answer comes through it.
    DesktopJobs jobs;
    DesktopWorkspace workspace;
    DesktopSavePanel savePanel{&QApplication::activeWindow};
};
