#pragma once

#include "catalog/StoreApp.h"
#include "platform/Failure.h"

/// The failure of an archive whose digest is not the catalog's.
Failure damagedArchive();

/// Reads the entry's archive, checks its digest and, if that is right, writes it to `destination`: whole or
/// not at all. The memory it needs is free again when it returns, and a lack of memory is a failure like any
/// other. Any thread.
Result<void> saveArchive(const StoreApp& app, const Path& destination);
