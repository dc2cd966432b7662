#pragma once

#include "platform/Path.h"
#include "platform/Role.h"

#include <optional>

/// Application bundles: folders `X.app` (platform/BundleLayout.h). Nothing is remembered: every call looks
/// again. Any thread.
class Bundles : public Role {
public:
    /// The bundle that the running program lies in. It is not looked at.
    virtual Path mainBundle() const = 0;
    /// The identifier of the bundle at `place`; none when there is no bundle, or it names no identifier.
    virtual std::optional<QString> bundleIdentifier(const Path& place) const = 0;
};
