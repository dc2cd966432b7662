#include "platform/desktop/TestSession.h"
#include "platform/TestBundle.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <sstream>

using namespace Qt::StringLiterals;

namespace {

struct TestSession final : testing::Environment {
    void SetUp() override
    {
        const Path home = session::home();
        for (const auto& [name, value] : {std::pair("HOME", home), {"XDG_CONFIG_HOME", home / "config"},
                 {"XDG_DATA_HOME", home / "data"}, {"XDG_DATA_DIRS", home / "system"},
                 {"XDG_RUNTIME_DIR", home}, {"REPORT", home / "report"}, {"QT_QPA_PLATFORM", "offscreen"}})
            qputenv(name, value.c_str());
        mkfifo((home / "report").c_str(), 0600);
        writeFile(home / "config/mimeapps.list", "[Default Applications]\ninode/directory=handler.desktop\n");
        writeFile(home / "data/applications/handler.desktop",
            R"([Desktop Entry]
Type=Application
Name=Handler
Exec=sh -c 'printf %%s "$0" > "$REPORT"' %u
)");
        bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        ASSERT_TRUE(bus.waitForReadyRead());
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus.readLine().trimmed());
        application = std::make_unique<QApplication>(argumentCount, &program_invocation_name);
    }
    void TearDown() override
    {
        application.reset();
        bus.kill();
        bus.waitForFinished();
    }

    QTemporaryDir folder;
    QProcess bus;
    int argumentCount = 1;
    std::unique_ptr<QApplication> application;
};

auto* const environment = new TestSession;
const auto* const registered = testing::AddGlobalTestEnvironment(environment);

} // namespace

Path session::home()
{
    return toPath(environment->folder.path());
}

std::string session::nextReport()
{
    return (std::stringstream() << std::ifstream(home() / "report").rdbuf()).str();
}
