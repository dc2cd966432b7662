#pragma once

#include <cstdio>

/// Where the self-test writes.
struct SelfTestOutput {
    std::FILE* report = stdout;
    std::FILE* errors = stderr;
};

/// Checks the main bundle's catalog, archives and icons. Writes and flushes one "PASS" line for each entry as
/// it passes. Returns the exit status: 0 when all four passed and the report was written, 1 when something
/// could not be read, decoded or written, 2 when the bundle is not what its catalog says. Needs
/// `Platform::bundles` and `files`.
int runSelfTest(SelfTestOutput output = {});
