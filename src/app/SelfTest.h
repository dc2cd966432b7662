#pragma once

#include "platform/Files.h"

#include <cstdio>

/// Where the self-test writes.
struct SelfTestOutput {
    std::FILE* report = stdout;
    std::FILE* errors = stderr;
};

/// Checks the catalog, archives and icons of the store's bundle at `store`. Writes and flushes one "PASS"
/// line for each entry as it passes. Returns the exit status: 0 when all four passed and the report was
/// written, 1 when something could not be read, decoded or written, 2 when the bundle is not what its catalog
/// says.
int runSelfTest(const Path& store, const Files& files, SelfTestOutput output = {});
