#pragma once

#include "platform/Path.h"

/// Where things lie in an application bundle `X.app`, and in a store's. Nothing is looked at. An empty path
/// for the bundle gives the place within it.
namespace bundle_layout {

inline constexpr const char* ending = ".app";

inline Path bundle(const Path& folder, const QString& name)
{
    return below(folder, name + QLatin1StringView(ending));
}

/// The bundle that a program in it belongs to.
inline Path bundleOfProgram(const Path& program)
{
    return program.parent_path().parent_path().parent_path();
}

inline Path contents(const Path& bundle)
{
    return bundle / "Contents";
}

inline Path infoList(const Path& bundle)
{
    return contents(bundle) / "Info.plist";
}

inline Path programs(const Path& bundle)
{
    return contents(bundle) / "MacOS";
}

inline Path frameworks(const Path& bundle)
{
    return contents(bundle) / "Frameworks";
}

inline Path resources(const Path& bundle)
{
    return contents(bundle) / "Resources";
}

// --- What only a store has ---

inline Path catalog(const Path& store)
{
    return resources(store) / "catalog.json";
}

inline Path packages(const Path& store)
{
    return resources(store) / "Packages";
}

/// The archive with this file name.
inline Path archive(const Path& store, const QString& name)
{
    return below(packages(store), name);
}

inline Path fonts(const Path& store)
{
    return resources(store) / "Fonts";
}

inline Path brandImage(const Path& store)
{
    return resources(store) / "Brand.png";
}

inline Path screenshot(const Path& store)
{
    return resources(store) / "BriskoScreen.png";
}

/// The icon of the catalog's application with this name.
inline Path icon(const Path& store, const QString& name)
{
    return below(resources(store), name + QLatin1StringView(".icns"));
}

} // namespace bundle_layout
