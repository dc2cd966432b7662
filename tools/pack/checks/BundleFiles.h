#pragma once

#include "catalog/StoreApp.h"
#include "platform/Path.h"

/// Where things lie in a store's bundle, and how small their pictures may be.
namespace bundle_file {

inline const Path resources = Path("Contents") / "Resources";
inline constexpr const char* catalog = "catalog.json";
inline constexpr const char* packages = "Packages";
inline constexpr const char* brand = "Brand.png";
inline constexpr const char* screenshot = "BriskoScreen.png";

inline Path icon(const StoreApp& app)
{
    return toPath(app.name + QLatin1StringView(".icns"));
}

/// The entry whose page shows the screenshot.
inline constexpr QLatin1StringView entryWithScreenshot("brisko");

/// Two pixels for each one that the featured card gives an icon; four for each that the sidebar gives the
/// brand image.
inline constexpr int smallestIcon = 320;
inline constexpr int smallestScreenshot = 320;
inline constexpr int brandEdge = 144;

} // namespace bundle_file
