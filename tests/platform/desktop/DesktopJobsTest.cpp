#include "platform/desktop/DesktopJobs.h"

#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <latch>

TEST(DesktopJobs, WorkRunsElsewhereItsTaskOnTheMainThreadAndTheEndWaitsForWorkOnly)
{
    auto jobs = std::make_unique<DesktopJobs>();
    QThread* worker = nullptr;
    QThread* back = nullptr;
    jobs->start([&] {
        worker = QThread::currentThread();
        return [&] { back = QThread::currentThread(); };
    });
    ASSERT_TRUE(QTest::qWaitFor([&] { return back != nullptr; }));
    EXPECT_EQ(back, QThread::currentThread());
    EXPECT_NE(worker, back);

    std::latch isEnding(1);
    bool isFinished = false;
    jobs->start([&]() -> Jobs::Task {
        isEnding.wait();
        isFinished = true;
        return [] { ADD_FAILURE() << "Nobody waits for this any more."; };
    });
    isEnding.count_down();
    jobs.reset();
    QCoreApplication::processEvents();
    EXPECT_TRUE(isFinished);
}
