#pragma once

#include "platform/Path.h"

#include <string>

/// While the test program runs, its home folder and XDG folders are temporary, the session bus is its own,
/// there is an offscreen application object, and one script handles folders.
namespace session {

/// The temporary home folder.
Path home();
/// The next text that a program started by a test writes to the pipe named by the variable REPORT. Waits for
/// it.
std::string nextReport();

} // namespace session
