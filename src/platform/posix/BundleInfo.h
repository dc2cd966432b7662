#pragma once

#include "platform/Path.h"

#include <optional>

/// What a bundle says of itself in its `Contents/Info.plist`.
struct BundleInfo {
    /// `CFBundleIdentifier`; empty when missing.
    QString identifier;
    /// `CFBundleExecutable`, a file name below `Contents/MacOS/`; empty when missing. Not checked: it may
    /// hold anything.
    QString executable;

    bool operator==(const BundleInfo&) const = default;
};

/// Reads the bundle at `bundle`, whose property list may be XML or binary; none when there is no folder, or
/// no such list in it. Does not trust the file. Any thread.
std::optional<BundleInfo> readBundleInfo(const Path& bundle);
