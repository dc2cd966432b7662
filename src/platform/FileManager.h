#pragma once

#include "platform/Path.h"

#include <optional>

/// The user's own folders. Any thread.
class FileManager {
public:
    FileManager() = default;
    FileManager(const FileManager&) = delete;
    FileManager& operator=(const FileManager&) = delete;
    virtual ~FileManager() = default;

    virtual Path homeFolder() const = 0;
    /// Where the user keeps downloads; none when there is no such folder.
    virtual std::optional<Path> downloadsFolder() const = 0;
};
