#include "platform/desktop/TestSession.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class TestSession final : public testing::Environment {
public:
    void SetUp() override
    {
        const Path home = toPath(m_folder.path());
        const auto set = [](const char* name, const Path& value) { qputenv(name, value.c_str()); };
        set("HOME", home);
        set("XDG_CONFIG_HOME", session::makeFolder(home / "config"));
        set("XDG_DATA_HOME", home / "data");
        set("XDG_DATA_DIRS", home / "system");
        set("XDG_RUNTIME_DIR", session::makeFolder(home / "run"));
        std::filesystem::permissions(home / "run", std::filesystem::perms::owner_all);
        set("REPORT", home / "report");
        set("QT_QPA_PLATFORM", "offscreen");
        mkfifo((home / "report").c_str(), 0600);
        session::write(home / "config/mimeapps.list",
            "[Default Applications]\ninode/directory=handler.desktop\n"
            "x-scheme-handler/https=handler.desktop\n");
        session::write(home / "data/applications/handler.desktop",
            "[Desktop Entry]\nType=Application\nName=Handler\n"
            "Exec=sh -c 'printf %%s \"$0\" > \"$REPORT\"' %u\n");
        startBus();
        m_application.emplace(m_argumentCount, &m_argument);
    }

    void TearDown() override
    {
        m_application.reset();
        m_bus.kill();
        m_bus.waitForFinished();
    }

private:
    void startBus()
    {
        m_bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        ASSERT_TRUE(m_bus.waitForReadyRead());
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
    }

    QTemporaryDir m_folder;
    QProcess m_bus;
    int m_argumentCount = 1;
    char m_name[6] = "tests";
    char* m_argument = m_name;
    std::optional<QApplication> m_application;
};

const auto* const environment = testing::AddGlobalTestEnvironment(new TestSession);

} // namespace

Path session::home()
{
    return qgetenv("HOME").toStdString();
}

std::string session::nextReport()
{
    std::ostringstream text;
    text << std::ifstream(home() / "report").rdbuf();
    return text.str();
}

Path session::makeFolder(const Path& folder)
{
    std::filesystem::create_directories(folder);
    return folder;
}

void session::write(const Path& file, const std::string& content)
{
    makeFolder(file.parent_path());
    std::ofstream(file) << content;
}

Path session::makeBundle(const Path& bundle, const std::string& identifier)
{
    write(bundle / "Contents/Info.plist",
        "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>"
            + identifier + "</string></dict></plist>");
    return bundle;
}

void session::writeProgram(const Path& bundle, const std::string& name, const std::string& content)
{
    const Path program = makeFolder(bundle / "Contents/MacOS") / name;
    write(program, content);
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
}

session::SilentBus::SilentBus() : m_listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_un name{AF_UNIX, {}};
    (home() / "silent").string().copy(name.sun_path, sizeof name.sun_path - 1);
    EXPECT_EQ(::bind(m_listener, reinterpret_cast<const sockaddr*>(&name), sizeof name), 0);
    ::listen(m_listener, 8);
}

session::SilentBus::~SilentBus()
{
    ::close(m_listener);
    std::filesystem::remove(home() / "silent");
}

QByteArray session::SilentBus::address() const
{
    return QByteArray("unix:path=") + (home() / "silent").c_str();
}
