#include "platform/posix/PosixUserFolders.h"

#include <QStandardPaths>

namespace {

Path standardFolder(QStandardPaths::StandardLocation location)
{
    return toPath(QStandardPaths::writableLocation(location));
}

} // namespace

Path PosixUserFolders::homeFolder() const
{
    return standardFolder(QStandardPaths::HomeLocation);
}

std::optional<Path> PosixUserFolders::downloadsFolder() const
{
    const Path folder = standardFolder(QStandardPaths::DownloadLocation);
    std::error_code error;
    return std::filesystem::is_directory(folder, error) ? std::optional(folder) : std::nullopt;
}
