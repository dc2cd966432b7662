#include "platform/desktop/SessionBus.h"

#include <QByteArrayList>
#include <QFile>

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <optional>
#include <poll.h>
#include <unistd.h>

namespace {

QByteArray busAddress()
{
    if (auto address = qgetenv(addressVariable); !address.isEmpty())
        return address;
    const auto socket = qgetenv("XDG_RUNTIME_DIR") + "/bus";
    return QFile::exists(QString::fromUtf8(socket)) ? "unix:path=" + socket.toPercentEncoding("/")
                                                    : QByteArray();
}

/// The socket's name as the system takes it: a path, or a zero byte and an abstract name. Empty for other
/// transports.
QByteArray socketName(const QByteArray& address)
{
    const auto first = address.split(';').front();
    if (!first.startsWith("unix:"))
        return {};
    for (const auto& pair : first.mid(5).split(',')) {
        const auto at = pair.indexOf('=');
        const auto key = pair.left(at);
        auto value = QByteArray::fromPercentEncoding(pair.mid(at + 1));
        if (key == "path")
            return value;
        if (key == "abstract")
            return QByteArray(1, '\0') + value;
    }
    return {};
}

/// A connection that closes with the object.
class Socket {
public:
    Socket() : m_descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) { }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    ~Socket() { ::close(m_descriptor); }

    /// Zero, or the error number.
    int connectTo(const QByteArray& name) const
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        if (name.size() >= qsizetype(sizeof address.sun_path))
            return ENAMETOOLONG;
        std::ranges::copy(name, address.sun_path);
        const auto size = socklen_t(offsetof(sockaddr_un, sun_path) + std::size_t(name.size()));
        return ::connect(m_descriptor, reinterpret_cast<const sockaddr*>(&address), size) == 0 ? 0 : errno;
    }

    bool answers(const QByteArray& greeting, std::chrono::milliseconds patience) const
    {
        if (::send(m_descriptor, greeting.constData(), std::size_t(greeting.size()), MSG_NOSIGNAL)
            != greeting.size())
            return false;
        pollfd waiting{m_descriptor, POLLIN, 0};
        return ::poll(&waiting, 1, int(patience.count())) == 1;
    }

private:
    int m_descriptor;
};

} // namespace

SessionBus probeSessionBus(std::chrono::milliseconds patience)
{
    const auto address = busAddress();
    if (address.isEmpty() || address == noAddress)
        return SessionBus::Absent;
    const auto name = socketName(address);
    if (name.isEmpty())
        return SessionBus::Answers;

    const Socket socket;
    const int errorNumber = socket.connectTo(name);
    if (errorNumber == EAGAIN) // Its queue of waiting connections is full.
        return SessionBus::Silent;
    if (errorNumber != 0)
        return SessionBus::Absent;
    // The question for the ways to authenticate, which every bus answers.
    static const QByteArray greeting = QByteArray(1, '\0') + "AUTH\r\n";
    return socket.answers(greeting, patience) ? SessionBus::Answers : SessionBus::Silent;
}
