#include "platform/desktop/DesktopWorkspace.h"
#include "platform/EnvironmentVariable.h"
#include "platform/TestBundle.h"
#include "platform/desktop/TestSession.h"

#include <QDBusConnection>
#include <QTest>

#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>
#include <future>
#include <regex>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using session::home;
using std::filesystem::perms;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

const QByteArray entryHead = "[Desktop Entry]\nType=Application\nName=Brisko\nExec=";

/// Tells all that a program can say of the process it runs in. Its status comes first and by the shell alone,
/// which blocks signals while it starts another program.
const QByteArray reporter = R"(#!/bin/sh
{ while read -r line; do echo "$line"; done < /proc/$$/status
  echo "program=$0"; printf folder=; pwd; ls -l /proc/$$/fd; env; } > "$REPORT")";

std::string field(const std::string& report, const std::string& name)
{
    std::smatch match;
    std::regex_search(report, match, std::regex("(^|\n)" + name + "[=:]\\s*([^\n]*)"));
    return match[2];
}

struct DesktopWorkspaceTest : testing::Test {
    Result<void> open(const Path& place)
    {
        std::promise<Result<void>> outcome;
        workspace.openApplication(place, [&](auto result) { outcome.set_value(std::move(result)); });
        return outcome.get_future().get();
    }

    const Path bundle = makeBundle(home() / "Applications/Brisko.app", xmlList({}));
    const Path program = bundle / "Contents/MacOS/Brisko";
    const Path entry = home() / "brisko.desktop";
    DesktopWorkspace workspace;
};

struct FileManager : QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public Q_SLOTS:
    void ShowItems(const QStringList& addresses, const QString&) { setObjectName(addresses.join(u' ')); }
};

} // namespace

TEST_F(DesktopWorkspaceTest, WhatIsOpenedHasNothingOfThisProcess)
{
    writeFile(program, reporter, perms::owner_all);
    writeFile(entry, entryHead + program.c_str());
    const EnvironmentVariable loader("LD_BIND_NOW", "1"), token("XDG_ACTIVATION_TOKEN", "spent");
    const std::ofstream leaked(home() / "leaked");
    ASSERT_TRUE(std::freopen((home() / "leaked").c_str(), "r", stdin));
    // Nothing here needs the signal, before or after.
    ::signal(SIGUSR1, SIG_IGN);
    sigset_t blocked{};
    ::sigaddset(&blocked, SIGUSR1);
    ::pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
    std::string report;
    for (const Path& place : {entry, bundle}) {
        EXPECT_TRUE(open(place));
        report = session::nextReport();
        EXPECT_EQ(field(report, "NSsid"), field(report, "NSpid"));
        for (const char* trace : {"leaked", "LD_BIND_NOW", "XDG_ACTIVATION_TOKEN"})
            EXPECT_THAT(report, Not(HasSubstr(trace)));
    }

    EXPECT_EQ(field(report, "program"), program.string());
    EXPECT_EQ(field(report, "folder"), home().string());
    EXPECT_EQ(field(report, "HOME"), home().string());
    EXPECT_EQ(field(report, "SigBlk"), "0000000000000000");
    constexpr auto ordinarySignals = (1ULL << 31) - 1; // The C library keeps the next two to itself.
    EXPECT_EQ(std::stoull(field(report, "SigIgn"), nullptr, 16) & ordinarySignals, 0);
    EXPECT_THAT(report, AllOf(HasSubstr(" 0 -> /dev/null"), HasSubstr(" 2 -> /dev/null")));
    const pid_t child = std::stoi(field(report, "Pid"));
    EXPECT_TRUE(QTest::qWaitFor([child] { return ::kill(child, 0) != 0 && errno == ESRCH; }, 60'000))
        << "A zombie is left.";
}

TEST_F(DesktopWorkspaceTest, WhatCannotBeOpenedSaysWhy)
{
    const std::tuple<QByteArray, perms, int, QString> rows[] = {
        {"\xCF\xFA\xED\xFE", perms::owner_all, ENOEXEC, systemFailure(ENOEXEC).localizedDescription},
        {"Hello", perms::owner_all, ENOEXEC, u"Файл приложения не является программой."_s},
        {"#!/no/such/interpreter\n", perms::owner_all, ENOENT,
            u"На компьютере нет программы, которая выполняет это приложение."_s},
        {"Hello", perms::owner_read, EACCES, u"Файл программы не помечен как исполняемый."_s},
    };
    for (const auto& [content, permissions, code, text] : rows) {
        writeFile(program, content, permissions);
        EXPECT_EQ(open(bundle).error(), (Failure{systemDomain, code, text}));
    }
    std::filesystem::remove(program);
    EXPECT_EQ(open(bundle).error(), (Failure{systemDomain, ENOENT, u"В приложении нет его программы."_s}));
    for (const char* missing : {"Nowhere.app", "missing.desktop"})
        EXPECT_EQ(open(home() / missing).error(), systemFailure(ENOENT));

    writeFile(entry, entryHead + "/no/such/program");
    EXPECT_EQ(open(entry).error(), (Failure{u"GIO"_s, 0, u"Ярлык программы повреждён или отключён."_s}));
}

TEST_F(DesktopWorkspaceTest, RevealingAsksTheFileManagerElseOpensTheFolder)
{
    const Path file = home() / "50% Мои #1?/файл.zip";
    writeFile(file, {});
    FileManager fileManager;
    auto bus = QDBusConnection::sessionBus();
    bus.registerObject(u"/org/freedesktop/FileManager1"_s, &fileManager, QDBusConnection::ExportAllSlots);

    bus.registerService(u"org.freedesktop.FileManager1"_s);
    workspace.reveal(file);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !fileManager.objectName().isEmpty(); }, 60'000));
    EXPECT_EQ(fileManager.objectName().toStdString(),
        "file://" + home().string() + "/50%25%20%D0%9C%D0%BE%D0%B8%20%231%3F/%D1%84%D0%B0%D0%B9%D0%BB.zip");

    bus.unregisterService(u"org.freedesktop.FileManager1"_s);
    const Path other = home() / "other/файл.zip";
    writeFile(other, {});
    workspace.reveal(other);
    auto opened = std::async(std::launch::async, session::nextReport);
    ASSERT_TRUE(QTest::qWaitFor([&] { return opened.wait_for(0s) == std::future_status::ready; }, 60'000));
    EXPECT_EQ(opened.get(), other.parent_path().string()) << "nothing more than was asked for";
}

#include "DesktopWorkspaceTest.moc"
