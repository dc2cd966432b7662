#include "platform/desktop/ProgramEnvironment.h"
#include "platform/desktop/SessionBus.h"
#include "platform/desktop/SingleInstance.h"

#include <QCoreApplication>
#include <QDBusConnection>

#include <cstdio>

namespace {

void say(const char* text)
{
    std::puts(text);
    std::fflush(stdout);
}

} // namespace

/// Starts as the program of the bundle at its argument does, says which role it got, and in the first role
/// waits to be raised once; alone, it says what bus a program that it started would use.
int main(int argumentCount, char** arguments)
{
    SingleInstance instance(
        instanceName(QStringLiteral("org.orbanel.test"), arguments[1]),
        [] {
            say(qgetenv("XDG_ACTIVATION_TOKEN").constData());
            QCoreApplication::quit();
        },
        std::chrono::milliseconds(500));
    const auto role = instance.claim();
    QCoreApplication application(argumentCount, arguments);
    switch (role) {
    case SingleInstance::Role::First:
        say("first");
        return QCoreApplication::exec();
    case SingleInstance::Role::Second:
        say("second");
        break;
    case SingleInstance::Role::Alone:
        // What Qt itself does on many desktops while it starts.
        QDBusConnection::sessionBus();
        say("alone");
        for (const std::string& variable : programEnvironment()) {
            if (variable.starts_with(addressVariable))
                say(variable.c_str());
        }
        say("no more");
        break;
    }
    return 0;
}
