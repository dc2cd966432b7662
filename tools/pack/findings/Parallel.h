#pragma once

#include "pack/findings/Finding.h"

#include <functional>

/// Calls `work(index, findings)` once for each index below `count`, on as many threads as the machine has
/// cores, and gives all findings in the order of the indexes. Where no thread can be made there are fewer.
/// What `work` throws is thrown here.
Findings findInParallel(std::size_t count, const std::function<void(std::size_t, Findings&)>& work);
