#pragma once

#include "pack/bundles/Source.h"
#include "platform/Failure.h"

/// Makes a bundle of the source. `bundle` must not exist. The same source gives the same bundle.
Result<void> writeBundle(const Source& source, const Path& bundle);
