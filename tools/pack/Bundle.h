#pragma once

#include "pack/Outcome.h"
#include "platform/Path.h"

struct PackOrder {
    /// Holds `collection.json`, `icons/<name>.svg`, `Brand.svg` and `BriskoScreen.png`.
    Path collection;
    /// Holds one application bundle `<name>.app` for each entry.
    Path apps;
    /// The resource folder of the store's bundle. It is made if need be.
    Path output;
};

/// Makes the store's resources: `Packages/<archive>` and `<name>.icns` for each entry, `Brand.png`,
/// `BriskoScreen.png` and, as soon as all of these lie there, `catalog.json`. Each file is replaced whole or
/// not at all.
Outcome<void> packBundle(const PackOrder& order);
