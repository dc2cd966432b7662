#pragma once

#include "platform/Bundles.h"

/// Bundles in the file system.
class DesktopBundles final : public Bundles {
public:
    /// The main bundle is the one that the running program lies in, whatever link it was started through.
    DesktopBundles();
    /// The main bundle is the one that `executable` lies in: `X.app/Contents/MacOS/name`.
    explicit DesktopBundles(const Path& executable);

    Path mainResources() const override;
    std::optional<QString> bundleIdentifier(const Path& place) const override;

private:
    Path m_resources;
};
