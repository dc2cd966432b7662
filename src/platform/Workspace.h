#pragma once

#include "platform/Failure.h"
#include "platform/Path.h"
#include "platform/Role.h"

#include <functional>
#include <optional>

/// The applications on this machine, and what the desktop does for the user. Main thread. No call waits for
/// another program.
class Workspace : public Role {
public:
    /// Where the system knows an application with this identifier, whatever its name, as of now.
    virtual std::optional<Path> urlForApplication(const QString& bundleID) = 0;
    /// Opens the application at `place`: a bundle, or a desktop entry. `done` is called once, on any thread,
    /// at the latest while the workspace is destroyed: what it uses lives until then.
    virtual void openApplication(const Path& place, std::function<void(Result<void>)> done) = 0;
    /// Shows a web page in the user's browser. The outcome is not known.
    virtual void openURL(const QString& address) = 0;
    /// Shows the file manager with `file` selected, or at least the file's folder. The outcome is not known.
    virtual void reveal(const Path& file) = 0;
};
