#pragma once

#include "platform/Failure.h"
#include "platform/Path.h"

#include <span>

/// Makes `content` the whole content of `file`, through a temporary file beside it that is flushed to the
/// disk and then takes its name. Links are followed and the permissions of an existing file are kept; whether
/// it may be replaced is for its folder to say, as with any renaming. After a failure nothing has changed and
/// no temporary file is left.
Result<void> writeAtomically(const Path& file, std::span<const std::byte> content);
