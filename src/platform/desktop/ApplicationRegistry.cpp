#include "platform/desktop/ApplicationRegistry.h"

#include "platform/desktop/DesktopEntries.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

std::optional<Path> desktopEntry(const QString& identifier)
{
    const auto file =
        toPath(QStandardPaths::locate(QStandardPaths::ApplicationsLocation, identifier + ".desktop"_L1));
    if (file.empty() || !isUsableDesktopEntry(file))
        return std::nullopt;
    return file;
}

} // namespace

ApplicationRegistry::ApplicationRegistry(const std::vector<Path>& folders)
    : m_folders(folders.begin(), folders.end())
{
}

std::optional<Path> ApplicationRegistry::applicationWithIdentifier(const QString& identifier)
{
    if (identifier.isEmpty() || identifier.contains(u'/'))
        return std::nullopt;
    for (ApplicationFolder& folder : m_folders) {
        if (auto bundle = folder.bundleWithIdentifier(identifier))
            return bundle;
    }
    return desktopEntry(identifier);
}
