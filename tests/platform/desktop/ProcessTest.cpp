#include "platform/EnvironmentVariable.h"
#include "platform/desktop/DesktopJobs.h"
#include "platform/desktop/EndingSignals.h"
#include "platform/desktop/SingleInstance.h"
#include "platform/desktop/TestSession.h"

#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>

using namespace Qt::StringLiterals;

namespace {

/// What another start of the program says until it ends.
QByteArray start()
{
    QProcess process;
    process.start(QStringLiteral(CLAIMANT), QStringList());
    process.waitForFinished();
    return process.readAll();
}

} // namespace

TEST(SingleInstance, ASecondStartRaisesTheFirstUnlessThatHangsAndWhatItStartsHasTheUsersOwnBus)
{
    EXPECT_NE(instanceName(u"a"_s, "/b"), instanceName(u"b"_s, "/b"));
    EXPECT_NE(instanceName(u"a"_s, "/b"), instanceName(u"a"_s, "/c"));
    const char* const name = "DBUS_SESSION_BUS_ADDRESS";
    const auto with = [name](const QByteArray& address) { return name + ('=' + address + '\n'); };
    const QByteArray address = qgetenv(name);
    QProcess first;
    first.start(QStringLiteral(CLAIMANT), QStringList());
    first.waitForReadyRead();
    EXPECT_EQ(first.readAll(), "first\n");

    qputenv("XDG_ACTIVATION_TOKEN", "token-of-the-click");
    EXPECT_EQ(start(), "second\n" + with(address));
    qunsetenv("XDG_ACTIVATION_TOKEN");
    first.waitForReadyRead();
    EXPECT_EQ(first.readAll(), "token-of-the-click\n");
    ASSERT_GT(first.processId(), 0) << "else everything would be stopped that runs the tests";
    ::kill(pid_t(first.processId()), SIGSTOP);
    EXPECT_EQ(start(), "alone\n" + with(address));
    first.kill();
    first.waitForFinished();

    for (const QByteArray& absent : {QByteArray("unix:path=/no/such/socket"), QByteArray()}) {
        const EnvironmentVariable bus(name, absent);
        EXPECT_EQ(start(), absent.isEmpty() ? "alone\n" : "alone\n" + with(absent));
    }
}

TEST(DesktopJobs, TheEndWaitsForAllWorkAndDropsWhatItHasToTell)
{
    constexpr int count = 10'000; // The threads cannot keep up with the start of so many.
    std::atomic<int> done = 0, told = 0;
    const auto work = [&]() -> Jobs::Task { return ++done, [&told] { ++told; }; };
    {
        DesktopJobs jobs;
        for (int i = 0; i < count; ++i)
            jobs.start(work);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(std::pair(done.load(), told.load()), std::pair(count, 0));
}

TEST(EndingSignals, EachIsHeardByTheEventLoopUnlessItWasIgnored)
{
    int asked = 0, expected = 0;
    for (const int ignored : {SIGHUP, SIGINT}) {
        ::signal(ignored, SIG_IGN);
        const EndingSignals listening([&asked] { ++asked; });
        for (const int number : {ignored, SIGTERM, SIGHUP, SIGINT}) {
            ::raise(number);
            EXPECT_EQ(asked, expected);
            expected += number == ignored ? 0 : 1;
            EXPECT_TRUE(QTest::qWaitFor([&] { return asked == expected; })) << number;
        }
        ::signal(ignored, SIG_DFL);
    }
    EXPECT_EQ(::signal(SIGTERM, SIG_DFL), SIG_DFL);
}
