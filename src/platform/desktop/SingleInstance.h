#pragma once

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

/// Keeps a second start of the program from opening a second window: the first process owns the program's
/// name on the session bus and answers to `org.freedesktop.Application` (freedesktop.org, D-Bus activation).
/// Main thread.
class SingleInstance {
public:
    enum class Role {
        /// The name is ours: later starts call `raise` on the main thread, from its event loop.
        First,
        /// Another process runs and has been asked to show its window: end now.
        Second,
        /// There is no bus that answers, or the other process does not: open as if alone.
        Alone,
    };

    /// Nobody is waited for longer than `patience` at each of at most four steps.
    explicit SingleInstance(
        std::function<void()> raise, std::chrono::milliseconds patience = std::chrono::seconds(2));
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Call once, before there is an application object: Qt joins the bus when that is made, and would wait
    /// without end for a bus that does not answer. Such a bus is taken out of this process's environment
    /// here.
    Role claim();

private:
    class Application;

    std::chrono::milliseconds m_patience;
    std::unique_ptr<Application> m_application;
};
