#include "platform/desktop/ProgramEnvironment.h"

#include "platform/desktop/SessionBus.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unistd.h>

namespace {

/// Variables such as QT_QPA_PLATFORM or GTK_THEME stay: they describe the user's display and taste.
constexpr auto ownNames = std::to_array<std::string_view>({
    // Good for one window that this process was started to show.
    "DESKTOP_STARTUP_ID",
    "XDG_ACTIVATION_TOKEN",
    "DESKTOP_AUTOSTART_ID",
    // The desktop entry that this process was started from.
    "GIO_LAUNCHED_DESKTOP_FILE",
    "GIO_LAUNCHED_DESKTOP_FILE_PID",
    "BAMF_DESKTOP_FILE_HINT",
    // Where this program's own Qt finds its plug-ins.
    "QT_PLUGIN_PATH",
    "QT_QPA_PLATFORM_PLUGIN_PATH",
    // The service that the session's manager runs this process as.
    "INVOCATION_ID",
    "JOURNAL_STREAM",
    "NOTIFY_SOCKET",
    "LISTEN_FDS",
    "LISTEN_FDNAMES",
    "LISTEN_PID",
    "MAINPID",
    "SYSTEMD_EXEC_PID",
    "WATCHDOG_PID",
    "WATCHDOG_USEC",
    // The shell that this process was started from: its folder, command and depth.
    "OLDPWD",
    "PWD",
    "SHLVL",
    "_",
});

/// Libraries chosen for this program, and the loader's settings for it.
constexpr std::string_view loaderPrefix = "LD_";

std::string_view nameOf(std::string_view variable)
{
    return variable.substr(0, variable.find('='));
}

bool isOwn(std::string_view variable)
{
    const auto name = nameOf(variable);
    return name.starts_with(loaderPrefix)
        || std::ranges::find(ownNames, name) != ownNames.end()
        // Set where the user has no bus, to keep one from being started.
        || variable == std::string(addressVariable) + '=' + noAddress;
}

} // namespace

std::vector<std::string> ownVariables()
{
    std::vector<std::string> names;
    for (char** variable = environ; *variable; ++variable) {
        if (isOwn(*variable))
            names.emplace_back(nameOf(*variable));
    }
    return names;
}

std::vector<std::string> programEnvironment()
{
    std::vector<std::string> variables;
    for (char** variable = environ; *variable; ++variable) {
        if (!isOwn(*variable))
            variables.emplace_back(*variable);
    }
    return variables;
}
