#include "catalog/StoreApp.h"

#include "catalog/Fields.h"
#include "platform/BundleLayout.h"
#include "platform/ByteCountFormatter.h"
#include "platform/Platform.h"
#include "platform/Text.h"

#include <algorithm>
#include <concepts>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Stands for a value of any type.
struct Anything {
    template <class Value>
    operator Value() const; // NOLINT(google-explicit-constructor)
};

/// Whether an entry takes a value for each of these places.
template <std::size_t... place>
constexpr bool hasPlaces(std::index_sequence<place...>)
{
    return requires
    {
        StoreApp{(static_cast<void>(place), Anything())...};
    };
}

static_assert(!hasPlaces(std::make_index_sequence<std::tuple_size_v<decltype(fields)> + 1>()),
    "a field is missing from the list of fields");

bool same(const QString& one, const QString& other)
{
    return canonicallyEqual(one, other);
}

bool same(const QStringList& one, const QStringList& other)
{
    return std::ranges::equal(one, other, canonicallyEqual);
}

bool same(std::integral auto one, decltype(one) other)
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

std::size_t hashed(std::size_t seed, std::integral auto number)
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
    return bundle_layout::archive(Platform::current().bundles.mainBundle(), archive);
}

std::optional<Path> StoreApp::installedURL() const
{
    const Platform& platform = Platform::current();
    for (const Path& folder : {Path("/Applications"), platform.userFolders.homeFolder() / "Applications"}) {
        const Path bundle = bundle_layout::bundle(folder, name);
        if (platform.bundles.bundleIdentifier(bundle) == bundleID)
            return bundle;
    }
    return platform.workspace.urlForApplication(bundleID);
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
