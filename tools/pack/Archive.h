#pragma once

#include "pack/Outcome.h"
#include "platform/Path.h"

/// What the catalog says of an archive.
struct PackedArchive {
    qint64 bytes = 0;
    QString sha256;

    bool operator==(const PackedArchive&) const = default;
};

/// Packs `folder`, itself included, into the ZIP archive `file` (PKWARE APPNOTE 6.3 with the Unix modes in
/// the central directory). Symbolic links stay links. Only the folder's content decides the bytes: entries
/// are sorted, files are 0644 or, if their owner may execute them, 0755, and all carry the earliest time that
/// a ZIP archive knows. After a failure `file` is what it was before.
Outcome<PackedArchive> packFolder(const Path& folder, const Path& file);
