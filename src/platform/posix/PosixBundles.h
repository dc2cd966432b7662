#pragma once

#include "platform/Bundles.h"

/// Bundles in the file system.
class PosixBundles final : public Bundles {
public:
    /// The main bundle is the one that the running program lies in, whatever link it was started through.
    PosixBundles();
    /// The main bundle is the one that `executable` lies in: `X.app/Contents/MacOS/name`.
    explicit PosixBundles(const Path& executable);

    Path mainBundle() const override;
    std::optional<QString> bundleIdentifier(const Path& place) const override;

private:
    Path m_mainBundle;
};
