#pragma once

#include "platform/Workspace.h"
#include "platform/desktop/ApplicationRegistry.h"

#include <QObject>
#include <QThreadPool>

/// The user's session on a freedesktop system. Destruction waits for what is being opened, so that `done` is
/// always called.
class DesktopWorkspace final : public Workspace {
public:
    DesktopWorkspace();

    std::optional<Path> urlForApplication(const QString& bundleID) override;
    void openApplication(const Path& place, std::function<void(Result<void>)> done) override;
    void openURL(const QString& address) override;
    void reveal(const Path& file) override;

private:
    ApplicationRegistry m_registry;
    QObject m_replies;
    QThreadPool m_openings;
};
