#include "platform/desktop/ApplicationRegistry.h"

#include "platform/desktop/DesktopEntries.h"

#include <QStandardPaths>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView entryEnding(".desktop");

std::optional<Path> desktopEntry(const QString& identifier)
{
    const auto file =
        toPath(QStandardPaths::locate(QStandardPaths::ApplicationsLocation, identifier + entryEnding));
    if (file.empty() || !isUsableDesktopEntry(file))
        return std::nullopt;
    return file;
}

} // namespace

ApplicationRegistry::ApplicationRegistry(const std::vector<Path>& folders)
{
    for (const Path& folder : folders)
        m_folders.emplace_back(folder);
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
