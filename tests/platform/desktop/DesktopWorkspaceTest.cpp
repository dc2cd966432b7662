#include "platform/desktop/DesktopWorkspace.h"
#include "platform/desktop/TestSession.h"

#include <QDBusConnection>
#include <QTest>

#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <future>
#include <regex>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using session::home;
using session::makeBundle;
using session::writeProgram;
using testing::HasSubstr;
using testing::Not;

namespace {

/// Tells all that a program can say of the process it runs in.
const std::string reporter =
    "#!/bin/sh\n"
    "{ echo \"pid=$$\"; echo \"program=$0\"; echo \"folder=$(pwd)\"\n"
    "  echo \"session=$(cut -d ' ' -f 6 /proc/$$/stat)\"\n"
    "  grep -E 'Sig(Blk|Ign)' /proc/$$/status; ls -l /proc/$$/fd; env; } > \"$REPORT\"\n";

std::string field(const std::string& report, const std::string& name)
{
    std::smatch match;
    std::regex_search(report, match, std::regex("(^|\n)" + name + "[=:]\\s*([^\n]*)"));
    return match[2];
}

class DesktopWorkspaceTest : public testing::Test {
protected:
    Result<void> open(const Path& place)
    {
        std::promise<Result<void>> outcome;
        workspace.openApplication(place, [&](auto result) { outcome.set_value(std::move(result)); });
        return outcome.get_future().get();
    }

    const Path applications = home() / "Applications";
    DesktopWorkspace workspace;
};

class FileManagerService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;

public Q_SLOTS:
    void ShowItems(const QStringList& addresses, const QString&) { shown += addresses; }
};

} // namespace

TEST_F(DesktopWorkspaceTest, AnOpenedBundleHasNothingOfThisProcess)
{
    const Path bundle = makeBundle(applications / "Brisko.app", "org.orbanel.brisko");
    writeProgram(bundle, "Brisko", reporter);
    const int leaked = ::open((home() / "leaked").c_str(), O_CREAT | O_RDWR, 0600);
    const auto formerHandler = ::signal(SIGUSR1, SIG_IGN);
    qputenv("LD_BIND_NOW", "1");
    qputenv("XDG_ACTIVATION_TOKEN", "spent");

    ASSERT_TRUE(open(bundle));
    const auto report = session::nextReport();
    ::close(leaked);
    ::signal(SIGUSR1, formerHandler);
    qunsetenv("LD_BIND_NOW");
    qunsetenv("XDG_ACTIVATION_TOKEN");

    EXPECT_EQ(field(report, "program"), (bundle / "Contents/MacOS/Brisko").string());
    EXPECT_EQ(field(report, "folder"), home().string());
    EXPECT_EQ(field(report, "session"), field(report, "pid"));
    EXPECT_EQ(field(report, "SigBlk"), "0000000000000000");
    constexpr auto ordinarySignals = (1ULL << 31) - 1; // The C library keeps the next two to itself.
    EXPECT_EQ(std::stoull(field(report, "SigIgn"), nullptr, 16) & ordinarySignals, 0);
    EXPECT_EQ(field(report, "HOME"), home().string());
    EXPECT_THAT(report, Not(HasSubstr("leaked")));
    EXPECT_THAT(report, Not(HasSubstr("LD_BIND_NOW")));
    EXPECT_THAT(report, Not(HasSubstr("XDG_ACTIVATION_TOKEN")));
    EXPECT_THAT(report, HasSubstr("0 -> /dev/null"));
    const pid_t child = std::stoi(field(report, "pid"));
    EXPECT_TRUE(QTest::qWaitFor([child] { return ::kill(child, 0) != 0 && errno == ESRCH; }))
        << "A zombie is left.";
}

TEST_F(DesktopWorkspaceTest, WhatCannotBeOpenedSaysWhy)
{
    struct Row {
        std::string program;
        std::filesystem::perms permissions;
        int code;
        QString text;
    };
    constexpr auto all = std::filesystem::perms::owner_all;
    const Row rows[] = {
        {reporter, std::filesystem::perms::owner_read, EACCES,
            u"Файл программы не помечен как исполняемый."_s},
        {"\xCF\xFA\xED\xFE", all, ENOEXEC, systemFailure(ENOEXEC).localizedDescription},
        {"Hello", all, ENOEXEC, u"Файл приложения не является программой."_s},
        {"#!/no/such/interpreter\n", all, ENOENT,
            u"На компьютере нет программы, которая выполняет это приложение."_s},
    };
    const Path bundle = makeBundle(applications / "Broken.app", "org.orbanel.broken");
    EXPECT_EQ(open(bundle).error(), (Failure{systemDomain, ENOENT, u"В приложении нет его программы."_s}));
    for (const Row& row : rows) {
        writeProgram(bundle, "Broken", row.program);
        std::filesystem::permissions(bundle / "Contents/MacOS/Broken", row.permissions);
        EXPECT_EQ(open(bundle).error(), (Failure{systemDomain, row.code, row.text}));
    }
    EXPECT_EQ(open(applications / "Nowhere.app").error(), systemFailure(ENOENT));
}

TEST_F(DesktopWorkspaceTest, ADesktopEntryIsOpenedInItsOwnSession)
{
    const std::string head = "[Desktop Entry]\nType=Application\nName=Brisko\n";
    writeProgram(applications, "entry", reporter);
    session::write(
        home() / "good.desktop", head + "Exec=" + (applications / "Contents/MacOS/entry").string() + "\n");
    session::write(home() / "bad.desktop", head + "Exec=/no/such/program\n");

    ASSERT_TRUE(open(home() / "good.desktop"));
    const auto report = session::nextReport();

    EXPECT_EQ(field(report, "session"), field(report, "pid"));
    EXPECT_EQ(open(home() / "bad.desktop").error().localizedDescription,
        u"Ярлык программы повреждён или отключён."_s);
    EXPECT_EQ(open(home() / "missing.desktop").error(), systemFailure(ENOENT));

    const QByteArray bus = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    const session::SilentBus silent;
    qputenv("DBUS_SESSION_BUS_ADDRESS", silent.address());
    EXPECT_EQ(open(home() / "good.desktop").error().localizedDescription, u"Рабочий стол не отвечает."_s);
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus);
}

TEST_F(DesktopWorkspaceTest, RevealingAsksTheFileManagerElseOpensTheFolder)
{
    const Path folder = session::makeFolder(home() / "Мои загрузки");
    const auto address = QByteArray("file://") + home().c_str()
        + "/%D0%9C%D0%BE%D0%B8%20%D0%B7%D0%B0%D0%B3%D1%80%D1%83%D0%B7%D0%BA%D0%B8";
    FileManagerService service;
    auto bus =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), u"userFolders"_s);
    bus.registerObject(u"/org/freedesktop/FileManager1"_s, &service, QDBusConnection::ExportAllSlots);

    bus.registerService(u"org.freedesktop.FileManager1"_s);
    workspace.reveal(folder / "50% #1?.zip");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !service.shown.isEmpty(); }));
    EXPECT_EQ(service.shown, QStringList{QString::fromLatin1(address + "/50%25%20%231%3F.zip")});

    bus.unregisterService(u"org.freedesktop.FileManager1"_s);
    workspace.reveal(folder / "50% #1?.zip");
    auto opened = std::async(std::launch::async, session::nextReport);
    ASSERT_TRUE(QTest::qWaitFor([&] { return opened.wait_for(0s) == std::future_status::ready; }));
    EXPECT_EQ(opened.get(), folder.string());
    QDBusConnection::disconnectFromBus(u"userFolders"_s);
}

#include "DesktopWorkspaceTest.moc"
