#include "platform/posix/PosixBundles.h"

#include "platform/BundleLayout.h"
#include "platform/posix/BundleInfo.h"

namespace {

Path realPath(const Path& path)
{
    std::error_code error;
    const Path real = std::filesystem::canonical(path, error);
    return error ? path : real;
}

} // namespace

PosixBundles::PosixBundles() : PosixBundles("/proc/self/exe") { }

PosixBundles::PosixBundles(const Path& executable)
    : m_mainBundle(bundle_layout::bundleOfProgram(realPath(executable)))
{
}

Path PosixBundles::mainBundle() const
{
    return m_mainBundle;
}

std::optional<QString> PosixBundles::bundleIdentifier(const Path& place) const
{
    const auto info = readBundleInfo(place);
    return info && !info->identifier.isEmpty() ? std::optional(info->identifier) : std::nullopt;
}
