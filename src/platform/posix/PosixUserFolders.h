#pragma once

#include "platform/UserFolders.h"

/// The folders of the desktop's user.
class PosixUserFolders final : public UserFolders {
public:
    Path homeFolder() const override;
    std::optional<Path> downloadsFolder() const override;
};
