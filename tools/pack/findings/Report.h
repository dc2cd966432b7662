#pragma once

#include "catalog/Catalog.h"
#include "pack/findings/Finding.h"
#include "platform/Path.h"

enum class Format { Text, Json };

struct Reporting {
    Format format = Format::Text;
    bool strict = false;
};

/// Writes what was found to standard output, sorted by file, line and code: one line each and their number,
/// or one JSON object with the entries. Returns the exit status: 2 for errors, and for warnings too if
/// `strict`; else 0.
int report(const Path& subject, Findings findings, const Catalog& entries, const Reporting& reporting);
