#pragma once

#include "platform/Path.h"
#include "platform/Role.h"

#include <optional>

/// The user's own folders. Any thread.
class UserFolders : public Role {
public:
    virtual Path homeFolder() const = 0;
    /// Where the user keeps downloads; none when there is no such folder.
    virtual std::optional<Path> downloadsFolder() const = 0;
};
