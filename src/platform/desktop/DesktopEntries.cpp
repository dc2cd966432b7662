#include "platform/desktop/DesktopEntries.h"

#include "platform/LateLibrary.h"
#include "platform/desktop/ProgramEnvironment.h"

#include <gio/gdesktopappinfo.h>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// GIO's functions. Loading it takes 5 of the 90 ms until the window appears, so it waits for the first
/// desktop entry.
struct Gio {
    LateLibrary library{"libgio-2.0.so.0"};
    PLOVI_LATE_FUNCTION(g_app_info_get_commandline);
    PLOVI_LATE_FUNCTION(g_app_info_launch_default_for_uri);
    PLOVI_LATE_FUNCTION(g_app_launch_context_new);
    PLOVI_LATE_FUNCTION(g_app_launch_context_unsetenv);
    PLOVI_LATE_FUNCTION(g_bus_get_sync);
    PLOVI_LATE_FUNCTION(g_dbus_connection_set_exit_on_close);
    PLOVI_LATE_FUNCTION(g_desktop_app_info_get_is_hidden);
    PLOVI_LATE_FUNCTION(g_desktop_app_info_launch_uris_as_manager);
    PLOVI_LATE_FUNCTION(g_desktop_app_info_new_from_filename);
    PLOVI_LATE_FUNCTION(g_error_free);
    PLOVI_LATE_FUNCTION(g_object_unref);
    PLOVI_LATE_FUNCTION(g_spawn_error_quark);
};

const Gio& gio()
{
    static const Gio functions;
    return functions;
}

struct Release {
    void operator()(gpointer object) const { gio().g_object_unref(object); }
    void operator()(GError* error) const { gio().g_error_free(error); }
};

using AppInfo = std::unique_ptr<GDesktopAppInfo, Release>;
using LaunchContext = std::unique_ptr<GAppLaunchContext, Release>;
using Error = std::unique_ptr<GError, Release>;

/// The application of a desktop entry; none when the entry is damaged or hidden, or names no program that is
/// there.
AppInfo readEntry(const Path& file)
{
    if (!gio().library.isLoaded())
        return nullptr;
    AppInfo entry(gio().g_desktop_app_info_new_from_filename(file.c_str()));
    const char* const program =
        entry ? gio().g_app_info_get_commandline(reinterpret_cast<GAppInfo*>(entry.get())) : nullptr;
    const bool isUsable = program && *program && !gio().g_desktop_app_info_get_is_hidden(entry.get());
    return isUsable ? std::move(entry) : nullptr;
}

LaunchContext cleanContext()
{
    LaunchContext context(gio().g_app_launch_context_new());
    for (const auto& name : ownVariables())
        gio().g_app_launch_context_unsetenv(context.get(), name.c_str());
    return context;
}

/// GIO connects to the session bus for every launch, and by default ends the process when the bus goes away.
void outliveBus()
{
    const std::unique_ptr<GDBusConnection, Release> bus(
        gio().g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (bus)
        gio().g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
}

void leaveSession(gpointer)
{
    ::setsid();
}

Failure failure(const GError& error)
{
    if (error.domain == gio().g_spawn_error_quark()) {
        switch (error.code) {
        case G_SPAWN_ERROR_NOENT:
            return {systemDomain, ENOENT, u"Программа, на которую указывает ярлык, не найдена."_s};
        case G_SPAWN_ERROR_ACCES:
        case G_SPAWN_ERROR_PERM:
            return systemFailure(EACCES);
        case G_SPAWN_ERROR_NOEXEC:
            return systemFailure(ENOEXEC);
        default:
            break;
        }
    }
    return {u"GIO"_s, error.code, u"Рабочий стол не смог запустить программу."_s};
}

} // namespace

bool isUsableDesktopEntry(const Path& file)
{
    return readEntry(file) != nullptr;
}

Result<void> openDesktopEntry(const Path& file)
{
    const AppInfo entry = readEntry(file);
    if (!entry) {
        std::error_code error;
        if (!std::filesystem::exists(file, error))
            return tl::unexpected(systemFailure(ENOENT));
        return tl::unexpected(Failure{u"GIO"_s, 0, u"Ярлык программы повреждён или отключён."_s});
    }

    outliveBus();
    const auto flags =
        GSpawnFlags(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
    GError* error = nullptr;
    if (gio().g_desktop_app_info_launch_uris_as_manager(entry.get(), nullptr, cleanContext().get(), flags,
            leaveSession, nullptr, nullptr, nullptr, &error))
        return {};
    return tl::unexpected(failure(*Error(error)));
}

void openWithDefaultProgram(const QString& address)
{
    if (!gio().library.isLoaded())
        return;
    outliveBus();
    gio().g_app_info_launch_default_for_uri(address.toUtf8().constData(), cleanContext().get(), nullptr);
}
