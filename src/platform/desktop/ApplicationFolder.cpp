#include "platform/desktop/ApplicationFolder.h"

#include "platform/BundleLayout.h"
#include "platform/posix/BundleInfo.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

namespace {

std::pair<dev_t, ino_t> identityOf(const Path& folder)
{
    struct stat status { };
    ::stat(folder.c_str(), &status);
    return {status.st_dev, status.st_ino};
}

QString identifierOf(const Path& bundle)
{
    const auto info = readBundleInfo(bundle);
    return info ? info->identifier : QString();
}

bool isBundle(const Path& entry)
{
    return entry.extension() == bundle_layout::ending;
}

} // namespace

ApplicationFolder::ApplicationFolder(Path folder) : m_folder(std::move(folder)) { }

std::optional<Path> ApplicationFolder::bundleWithIdentifier(const QString& identifier)
{
    refresh();
    auto found = m_bundles.constFind(identifier);
    // The way to the bundle may lead through links to places that are not watched.
    if (found != m_bundles.cend() && identifierOf(*found) != identifier) {
        scan();
        found = m_bundles.constFind(identifier);
    }
    return found == m_bundles.cend() ? std::nullopt : std::optional(*found);
}

void ApplicationFolder::refresh()
{
    const bool hasChanged = m_watch.takeChange();
    if (hasChanged || identityOf(m_folder) != m_identity)
        scan();
}

void ApplicationFolder::scan()
{
    m_bundles.clear();
    m_watch.restart();
    m_identity = identityOf(m_folder);

    std::vector<Path> folders;
    for (const Path& entry : watchedContent(m_folder)) {
        std::error_code error;
        if (isBundle(entry))
            add(entry);
        else if (entry.filename().native().front() != '.' && std::filesystem::is_directory(entry, error))
            folders.push_back(entry);
    }
    for (const Path& folder : folders) {
        for (const Path& entry : watchedContent(folder)) {
            if (isBundle(entry))
                add(entry);
        }
    }
}

/// Watched before it is read: what happens in between shows at the next look.
std::vector<Path> ApplicationFolder::watchedContent(const Path& folder)
{
    m_watch.add(folder);
    std::vector<Path> content;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        content.push_back(entry->path());
    std::ranges::sort(content);
    return content;
}

void ApplicationFolder::add(const Path& bundle)
{
    m_watch.add(bundle);
    m_watch.add(bundle_layout::contents(bundle));
    const QString identifier = identifierOf(bundle);
    if (!identifier.isEmpty() && !m_bundles.contains(identifier))
        m_bundles.insert(identifier, bundle);
}
