#pragma once

#include "platform/Failure.h"
#include "platform/Path.h"

/// Whether the file is a desktop entry of an application that this session may show: not hidden, and its
/// program is there. Any thread.
bool isUsableDesktopEntry(const Path& file);

/// Opens the application of a desktop entry. Waits for the disk and the session bus. Any thread.
Result<void> openDesktopEntry(const Path& file);

/// Opens an address (any scheme) with the user's program for it. Waits like `openDesktopEntry`. Any thread.
void openWithDefaultProgram(const QString& address);
