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

/// Starts as the program does, says which role it got, and in the first role waits to be raised once.
int main(int argumentCount, char** arguments)
{
    SingleInstance instance(
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
        break;
    }
    return 0;
}
