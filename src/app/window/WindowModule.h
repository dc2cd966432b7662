#pragma once

/// The window lives in a module of its own, next to the executable in the bundle's folder Frameworks, so that
/// the self-test need not load a window toolkit: that alone would take longer than the test.
inline constexpr const char* windowModuleFile = "libPloviStoreWindow.so";

/// What the module offers: opens the store and returns the exit status of the process when the user has left
/// it.
using RunWindow = int(int argc, char* argv[]);
inline constexpr const char* runWindowSymbol = "runPloviStoreWindow";
