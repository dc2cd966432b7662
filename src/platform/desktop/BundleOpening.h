#pragma once

#include "platform/Failure.h"
#include "platform/Path.h"

/// Starts the program of the application bundle at `bundle`, in a session of its own, with nothing of this
/// process but the user's environment. Succeeds once the program runs; what becomes of it is not watched.
/// Waits for the disk. Any thread.
Result<void> openBundle(const Path& bundle);
