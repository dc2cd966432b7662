#pragma once

#include "pack/findings/Finding.h"
#include "pack/trees/Tree.h"

/// Reads the ZIP archive through to its last byte without writing anything, and gives what it would unpack to
/// below the folder `top`. What does not unpack, or to more than that folder, or to more than anybody can
/// want, is a finding.
Tree readArchive(const Path& file, const std::string& top, const Place& place, Findings& findings);
