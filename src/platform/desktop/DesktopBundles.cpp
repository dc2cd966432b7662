#include "platform/desktop/DesktopBundles.h"

#include "platform/desktop/BundleInfo.h"

namespace {

Path realPath(const Path& path)
{
    std::error_code error;
    const Path real = std::filesystem::canonical(path, error);
    return error ? path : real;
}

} // namespace

DesktopBundles::DesktopBundles() : DesktopBundles("/proc/self/exe") { }

DesktopBundles::DesktopBundles(const Path& executable)
    : m_resources(realPath(executable).parent_path().parent_path() / "Resources")
{
}

Path DesktopBundles::mainResources() const
{
    return m_resources;
}

std::optional<QString> DesktopBundles::bundleIdentifier(const Path& place) const
{
    const auto info = readBundleInfo(place);
    return info && !info->identifier.isEmpty() ? std::optional(info->identifier) : std::nullopt;
}
