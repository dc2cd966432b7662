#pragma once

#include "platform/FileManager.h"

/// The folders of the desktop's user.
class DesktopFileManager final : public FileManager {
public:
    Path homeFolder() const override;
    std::optional<Path> downloadsFolder() const override;
};
