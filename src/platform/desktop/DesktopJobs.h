#pragma once

#include "platform/Jobs.h"

#include <QObject>
#include <QThreadPool>

/// Background work in threads of its own. Created on the main thread, which must have an event loop. An
/// exception that leaves a task ends the program. Destruction waits for all work that was started, so that a
/// save is finished when the window closes; tasks then still waiting for the main thread are dropped.
class DesktopJobs final : public Jobs {
public:
    DesktopJobs();

    void start(std::function<Task()> work) override;
    void onMainThread(Task task) override;

private:
    QObject m_mainThread;
    // Destroyed first: its work still posts to m_mainThread.
    QThreadPool m_pool;
};
