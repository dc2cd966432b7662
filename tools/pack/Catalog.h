#pragma once

#include "pack/Archive.h"
#include "pack/Collection.h"

#include <QByteArray>

/// An entry whose archive has been packed.
struct PackedEntry {
    Entry entry;
    PackedArchive archive;
};

/// The content of the `catalog.json` that the store reads: UTF-8, one key a line.
QByteArray catalogFile(const std::vector<PackedEntry>& entries);
