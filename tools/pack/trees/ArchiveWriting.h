#pragma once

#include "pack/findings/Finding.h"
#include "pack/trees/Tree.h"
#include "platform/Failure.h"

/// Packs the application in `folder`, whose tree this is, into the ZIP archive `file` (PKWARE APPNOTE 6.3
/// with the Unix modes in the central directory). Symbolic links stay links. Only the tree and the content of
/// its files decide the bytes: entries are sorted, files are 0644 or, if their owner may execute them, 0755,
/// and all carry the earliest time that a ZIP archive knows. A file that is no longer what the tree says is a
/// finding.
Result<void> writeArchive(
    const Tree& tree, const Path& folder, const Path& file, const Place& place, Findings& findings);
