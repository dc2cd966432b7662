#pragma once

#include "platform/Path.h"

#include <QObject>

#include <functional>
#include <memory>

/// What the processes of one bundle are known by on the session bus. Another bundle, or a copy at another
/// place, has another name. `place` is its real path.
QString instanceName(const QString& identifier, const Path& place);

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
        /// There is no bus, or the other process does not answer: open as if alone.
        Alone,
    };

    SingleInstance(QString name, std::function<void()> raise);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Call once, before there is an application object. The other process is waited for two seconds.
    Role claim();

private:
    class Application;

    QString m_name;
    std::unique_ptr<Application> m_application;
};
