#include "platform/desktop/DesktopJobs.h"

#include <algorithm>
#include <utility>

DesktopJobs::DesktopJobs()
{
    // Work waits for the disk more than it computes: several saves run at once even on one processor.
    m_pool.setMaxThreadCount(std::max(4, m_pool.maxThreadCount()));
}

void DesktopJobs::start(std::function<Task()> work)
{
    // After a lost exception the caller would wait for ever; the end of the program is at least heard.
    m_pool.start([this, doWork = std::move(work)]() noexcept { onMainThread(doWork()); });
}

void DesktopJobs::onMainThread(Task task)
{
    QMetaObject::invokeMethod(&m_mainThread, std::move(task), Qt::QueuedConnection);
}
