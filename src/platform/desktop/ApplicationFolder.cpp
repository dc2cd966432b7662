#include "platform/desktop/ApplicationFolder.h"

#include "platform/posix/BundleInfo.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <utility>

using namespace std::chrono_literals;

namespace {

QString identifierOf(const Path& bundle)
{
    const auto info = readBundleInfo(bundle);
    return info ? info->identifier : QString();
}

/// How far apart two changes must be for their time stamps to differ for certain.
std::chrono::nanoseconds tick(std::chrono::sys_time<std::chrono::nanoseconds> stamp)
{
    // Some file systems stamp whole seconds, or every other one.
    const bool isCoarse = stamp.time_since_epoch() % 1s == 0s;
    return isCoarse ? 2s : 50ms;
}

} // namespace

ApplicationFolder::ApplicationFolder(Path folder) : m_folder(std::move(folder)) { }

std::optional<Path> ApplicationFolder::bundleWithIdentifier(const QString& identifier)
{
    refresh();

    auto found = m_bundles.constFind(identifier);
    if (found != m_bundles.cend() && identifierOf(*found) != identifier) {
        scan();
        found = m_bundles.constFind(identifier);
    }
    return found == m_bundles.cend() ? std::nullopt : std::optional(*found);
}

std::optional<ApplicationFolder::State> ApplicationFolder::currentState() const
{
    struct stat status { };
    if (::stat(m_folder.c_str(), &status) != 0)
        return std::nullopt;

    // Not the time of modification: copying programs set that one back.
    const Time changed(
        std::chrono::seconds(status.st_ctim.tv_sec) + std::chrono::nanoseconds(status.st_ctim.tv_nsec));
    return State{status.st_dev, status.st_ino, changed};
}

void ApplicationFolder::refresh()
{
    if (!m_isTrusted || currentState() != m_state)
        scan();
    else
        std::erase_if(m_unfinished, [this](const Path& bundle) { return add(bundle); });
}

void ApplicationFolder::scan()
{
    m_bundles.clear();
    m_unfinished.clear();
    m_state = currentState();
    // A change in the same tick as the last one would leave the stamp as it is.
    m_isTrusted = !m_state
        || std::chrono::abs(std::chrono::system_clock::now() - m_state->changed) > tick(m_state->changed);

    std::vector<Path> bundles;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(m_folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (entry->path().extension() == ".app")
            bundles.push_back(entry->path());
    }
    std::ranges::sort(bundles);
    // A bundle that is being copied here may get its property list later, which leaves the folder's stamp as
    // it is.
    std::ranges::copy_if(
        bundles, std::back_inserter(m_unfinished), [this](const Path& bundle) { return !add(bundle); });
}

bool ApplicationFolder::add(const Path& bundle)
{
    const auto identifier = identifierOf(bundle);
    if (identifier.isEmpty())
        return false;
    Path& place = m_bundles[identifier];
    if (place.empty() || bundle < place)
        place = bundle;
    return true;
}
