#include "platform/desktop/ProgramEnvironment.h"
#include "platform/desktop/SessionBus.h"
#include "platform/desktop/SingleInstance.h"

#include <QCoreApplication>
#include <QDBusConnection>

#include <array>
#include <cstdio>

/// Starts as the program does, and says which role it got. In the first role it stays and says with which
/// token it is raised; else it says what bus a program that it started would use.
int main(int argumentCount, char** arguments)
{
    ::setlinebuf(stdout);
    SingleInstance instance(instanceName(QStringLiteral("org.orbanel.test"), "/Applications/Test.app"),
        [] { std::puts(qgetenv("XDG_ACTIVATION_TOKEN").constData()); });
    const auto role = instance.claim();
    const QCoreApplication application(argumentCount, arguments);
    // What Qt itself does on many desktops while it starts.
    QDBusConnection::sessionBus();
    std::puts(std::array{"first", "second", "alone"}.at(std::size_t(role)));
    if (role == SingleInstance::Role::First)
        return QCoreApplication::exec();
    for (const std::string& variable : programEnvironment()) {
        if (variable.starts_with(addressVariable))
            std::puts(variable.c_str());
    }
    return 0;
}
