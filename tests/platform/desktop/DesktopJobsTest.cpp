#include "platform/desktop/DesktopJobs.h"

#include <QCoreApplication>
#include <QTest>
#include <QThread>

#include <gmock/gmock.h>

#include <latch>
#include <optional>

TEST(DesktopJobs, WorkRunsElsewhereAndItsTaskOnTheMainThread)
{
    DesktopJobs jobs;
    QThread* worker = nullptr;
    QThread* back = nullptr;

    jobs.start([&] {
        worker = QThread::currentThread();
        return [&] { back = QThread::currentThread(); };
    });

    ASSERT_TRUE(QTest::qWaitFor([&] { return back != nullptr; }));
    EXPECT_EQ(back, QThread::currentThread());
    EXPECT_NE(worker, back);
}

TEST(DesktopJobs, ItsEndWaitsForWorkAndDropsTheTasksLeft)
{
    std::optional<DesktopJobs> jobs(std::in_place);
    std::latch isRunning(1);
    std::atomic<bool> isEnding = false;
    bool isFinished = false;
    bool taskRan = false;

    jobs->start([&]() -> Jobs::Task {
        isRunning.count_down();
        isEnding.wait(false);
        isFinished = true;
        return [&] { taskRan = true; };
    });
    isRunning.wait();
    isEnding = true;
    isEnding.notify_all();
    jobs.reset();
    QCoreApplication::processEvents();

    EXPECT_TRUE(isFinished);
    EXPECT_FALSE(taskRan);
}
