#include "platform/desktop/SingleInstance.h"
#include "platform/desktop/TestSession.h"

#include <QProcess>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <csignal>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Another start of the program.
class Start : public QProcess {
public:
    explicit Start(const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
    {
        setProcessChannelMode(ForwardedErrorChannel);
        setProcessEnvironment(environment);
        start(QStringLiteral(CLAIMANT), {});
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

TEST(SingleInstance, ASecondStartRaisesTheFirstAndHandsItsTokenOver)
{
    Start first;
    ASSERT_EQ(first.nextLine(), "first");

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

TEST(SingleInstance, WithoutABusThatAnswersItRunsAlone)
{
    const Path socketFile = session::home() / "silent";
    sockaddr_un name{AF_UNIX, {}};
    socketFile.string().copy(name.sun_path, sizeof name.sun_path - 1);
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr*>(&name), sizeof name), 0);
    ::listen(listener, 8);

    for (const auto& socket : {toText(socketFile), u"/no/such/socket"_s}) {
        Start start(with(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + socket));
        EXPECT_EQ(start.nextLine(), "alone") << socket.toStdString();
    }
    ::close(listener);
}
