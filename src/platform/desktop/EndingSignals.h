#pragma once

#include <QSocketNotifier>

#include <functional>

/// Listens to the signals that ask the process to end: SIGTERM, SIGINT and SIGHUP. One that was ignored when
/// the process started stays ignored. Main thread; one object at a time. Costs nothing while no signal
/// arrives.
class EndingSignals {
public:
    /// `asked` is called on the main thread, from its event loop, once or more for each signal.
    explicit EndingSignals(std::function<void()> asked);
    ~EndingSignals();
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;

private:
    QSocketNotifier m_notifier;
};
