#pragma once

#include "pack/findings/Finding.h"
#include "pack/trees/Tree.h"

/// Reads what lies in `folder`. What desktops leave there is left out, and told like everything that cannot
/// be read.
Tree readTree(const Path& folder, const Place& place, Findings& findings);
