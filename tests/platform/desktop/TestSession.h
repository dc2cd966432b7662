#pragma once

#include "platform/Path.h"

#include <QByteArray>

#include <string>

/// While the test program runs, its home folder and XDG folders are temporary, the session bus is its own,
/// there is an offscreen application object, and one script handles folders and web pages.
namespace session {

/// The temporary home folder.
Path home();
/// The next text that a program started by a test writes to the pipe named by the variable REPORT. Waits for
/// it.
std::string nextReport();

Path makeFolder(const Path& folder);
void write(const Path& file, const std::string& content);
/// A bundle that names no executable.
Path makeBundle(const Path& bundle, const std::string& identifier);
/// A bundle's program.
void writeProgram(const Path& bundle, const std::string& name, const std::string& content);

/// A session bus that takes connections and never answers.
class SilentBus {
public:
    SilentBus();
    ~SilentBus();
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;

    QByteArray address() const;

private:
    int m_listener;
};

} // namespace session
