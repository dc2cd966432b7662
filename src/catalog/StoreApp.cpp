#include "catalog/StoreApp.h"

#include "catalog/Fields.h"
#include "platform/BundleLayout.h"
#include "platform/ByteCountFormatter.h"
#include "platform/Platform.h"
#include "platform/Text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool same(const QString& one, const QString& other)
{
    return canonicallyEqual(one, other);
}

bool same(const QStringList& one, const QStringList& other)
{
    return std::ranges::equal(one, other, canonicallyEqual);
}

bool same(qint64 one, qint64 other)
{
    return one == other;
}

std::size_t hashed(std::size_t seed, const QString& text)
{
    return qHashMulti(seed, canonicalHash(text));
}

std::size_t hashed(std::size_t seed, const QStringList& texts)
{
    seed = qHashMulti(seed, texts.size());
    for (const QString& text : texts)
        seed = hashed(seed, text);
    return seed;
}

std::size_t hashed(std::size_t seed, qint64 number)
{
    return qHashMulti(seed, number);
}

} // namespace

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
    return below(bundle_layout::packages(Platform::current().bundles->mainBundle()), archive);
}

std::optional<Path> StoreApp::installedURL() const
{
    const Platform& platform = Platform::current();
    for (const Path& folder : {Path("/Applications"), platform.userFolders->homeFolder() / "Applications"}) {
        const Path bundle = bundle_layout::bundle(folder, name);
        if (platform.bundles->bundleIdentifier(bundle) == bundleID)
            return bundle;
    }
    return platform.workspace->urlForApplication(bundleID);
}

bool StoreApp::operator==(const StoreApp& other) const
{
    bool equal = true;
    forEachField([&](CodingKeys, auto field) { equal = equal && same(this->*field, other.*field); });
    return equal;
}

std::size_t std::hash<StoreApp>::operator()(const StoreApp& app) const
{
    std::size_t seed = 0;
    forEachField([&](CodingKeys, auto field) { seed = hashed(seed, app.*field); });
    return seed;
}
