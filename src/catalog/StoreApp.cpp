#include "catalog/StoreApp.h"

#include "platform/ByteCountFormatter.h"
#include "platform/Platform.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array textFields{
    &StoreApp::id,
    &StoreApp::name,
    &StoreApp::category,
    &StoreApp::subtitle,
    &StoreApp::headline,
    &StoreApp::description,
    &StoreApp::tint,
    &StoreApp::version,
    &StoreApp::bundleID,
    &StoreApp::minimum,
    &StoreApp::archive,
    &StoreApp::sha256,
    &StoreApp::architecture,
};

}

QString StoreApp::size() const
{
    return formatByteCount(bytes);
}

QString StoreApp::compatibility() const
{
    const bool runsOnIntel = architecture.contains("x86_64"_L1);
    return "macOS "_L1 + minimum + u"+ · "_s
        + (runsOnIntel ? u"Apple Silicon и Intel"_s : u"Apple Silicon"_s);
}

QString StoreApp::searchText() const
{
    return name + u' ' + subtitle + u' ' + description;
}

Path StoreApp::packageURL() const
{
    return Platform::current().bundles->mainResources() / "Packages" / toPath(archive);
}

std::optional<Path> StoreApp::installedURL() const
{
    const Platform& platform = Platform::current();
    const Path bundle = toPath(name + ".app"_L1);
    for (const Path& folder : {Path("/Applications"), platform.userFolders->homeFolder() / "Applications"}) {
        if (platform.bundles->bundleIdentifier(folder / bundle) == bundleID)
            return folder / bundle;
    }
    return platform.workspace->urlForApplication(bundleID);
}

bool StoreApp::operator==(const StoreApp& other) const
{
    return std::ranges::all_of(
               textFields, [&](auto field) { return canonicallyEqual(this->*field, other.*field); })
        && std::ranges::equal(features, other.features, canonicallyEqual) && bytes == other.bytes;
}

std::size_t std::hash<StoreApp>::operator()(const StoreApp& app) const
{
    std::size_t seed = 0;
    for (auto field : textFields)
        seed = qHashMulti(seed, canonicalHash(app.*field));
    seed = qHashMulti(seed, app.features.size());
    for (const QString& feature : app.features)
        seed = qHashMulti(seed, canonicalHash(feature));
    return qHashMulti(seed, app.bytes);
}
