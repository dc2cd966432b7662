#include "platform/desktop/DesktopFileManager.h"

#include <QStandardPaths>

namespace {

Path standardFolder(QStandardPaths::StandardLocation location)
{
    return toPath(QStandardPaths::writableLocation(location));
}

} // namespace

Path DesktopFileManager::homeFolder() const
{
    return standardFolder(QStandardPaths::HomeLocation);
}

std::optional<Path> DesktopFileManager::downloadsFolder() const
{
    const Path folder = standardFolder(QStandardPaths::DownloadLocation);
    std::error_code error;
    return std::filesystem::is_directory(folder, error) ? std::optional(folder) : std::nullopt;
}
