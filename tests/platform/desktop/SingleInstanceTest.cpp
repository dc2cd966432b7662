#include "platform/desktop/SingleInstance.h"
#include "platform/desktop/TestSession.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

/// Another start of the program.
class Start : public QProcess {
public:
    explicit Start(const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment(),
        const QString& place = u"/Applications/PloviStore.app"_s)
    {
        setProcessChannelMode(ForwardedErrorChannel);
        setProcessEnvironment(environment);
        start(QStringLiteral(CLAIMANT), {place});
    }
    ~Start() override
    {
        kill();
        waitForFinished();
    }

    QByteArray nextLine()
    {
        while (!canReadLine() && waitForReadyRead()) { }
        return readLine().trimmed();
    }
};

QProcessEnvironment with(const QString& name, const QString& value)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(name, value);
    return environment;
}

} // namespace

TEST(SingleInstance, ASecondStartOfOneBundleRaisesTheFirstAndHandsItsTokenOver)
{
    Start first;
    ASSERT_EQ(first.nextLine(), "first");

    Start elsewhere(with({}, {}), u"/opt/PloviStore.app"_s);
    EXPECT_EQ(elsewhere.nextLine(), "first");
    Start second(with(u"XDG_ACTIVATION_TOKEN"_s, u"token-of-the-click"_s));

    EXPECT_EQ(second.nextLine(), "second");
    EXPECT_EQ(first.nextLine(), "token-of-the-click");
}

TEST(SingleInstance, AFirstProcessThatHangsDoesNotKeepTheProgramShut)
{
    Start first;
    ASSERT_EQ(first.nextLine(), "first");
    ::kill(pid_t(first.processId()), SIGSTOP);

    Start second;

    EXPECT_EQ(second.nextLine(), "alone");
}

TEST(SingleInstance, WithoutABusThatAnswersItRunsAloneAndWhatItStartsHasTheUsersOwn)
{
    EXPECT_NE(instanceName(u"a"_s, "/b"), instanceName(u"b"_s, "/b"));
    const session::SilentBus silent;
    for (const auto& address : {silent.address(), QByteArray("unix:path=/no/such/socket")}) {
        Start start(with(u"DBUS_SESSION_BUS_ADDRESS"_s, QString::fromUtf8(address)));
        EXPECT_EQ(start.nextLine(), "alone");
        EXPECT_EQ(start.nextLine(), "DBUS_SESSION_BUS_ADDRESS=" + address);
    }
    Start start(with(u"DBUS_SESSION_BUS_ADDRESS"_s, {}));
    EXPECT_EQ(start.nextLine(), "alone");
    EXPECT_EQ(start.nextLine(), "no more");
}
