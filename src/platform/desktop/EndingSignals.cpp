#include "platform/desktop/EndingSignals.h"

#include <sys/eventfd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::array signalNumbers{SIGTERM, SIGINT, SIGHUP};

/// What the handler can reach: it may only write to a descriptor.
int s_event = -1;

void noteSignal(int)
{
    const int before = errno;
    ::eventfd_write(s_event, 1);
    errno = before;
}

int openEvent()
{
    s_event = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    return s_event;
}

void setHandler(int number, void (*handler)(int))
{
    struct sigaction action { };
    ::sigaction(number, nullptr, &action);
    if (action.sa_handler == SIG_IGN)
        return;
    action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(number, &action, nullptr);
}

} // namespace

EndingSignals::EndingSignals(std::function<void()> asked) : m_notifier(openEvent(), QSocketNotifier::Read)
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [report = std::move(asked)] {
        eventfd_t count = 0;
        ::eventfd_read(s_event, &count);
        report();
    });
    for (const int number : signalNumbers)
        setHandler(number, noteSignal);
}

EndingSignals::~EndingSignals()
{
    for (const int number : signalNumbers)
        setHandler(number, SIG_DFL);
    ::close(std::exchange(s_event, -1));
}
