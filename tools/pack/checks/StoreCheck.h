#pragma once

#include "catalog/Catalog.h"
#include "pack/findings/Finding.h"

/// A store's bundle that has been read through, and what is wrong with it.
struct StoreBundle {
    Catalog catalog;
    Findings findings;
};

/// Proves a store: its catalog, every archive through to the application in it, every picture. Nothing is
/// unpacked. Fails when `bundle` is no store.
Result<StoreBundle> readStore(const Path& bundle);
