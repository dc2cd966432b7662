#pragma once

#include "pack/findings/Finding.h"
#include "pack/trees/Tree.h"

/// Looks for names, links and kinds that do not unpack everywhere as they are.
void checkTree(const Tree& tree, const Place& place, Findings& findings);
