#pragma once

#include <functional>

/// Work away from the main thread, and the way back.
class Jobs {
public:
    using Task = std::function<void()>;

    Jobs() = default;
    Jobs(const Jobs&) = delete;
    Jobs& operator=(const Jobs&) = delete;
    virtual ~Jobs() = default;

    /// Runs `work`, which lets no exception out, in the background, then, on the main thread, the task that
    /// it returned. Any thread.
    virtual void start(std::function<Task()> work) = 0;
    /// Runs `task` on the main thread, after the current event. Any thread.
    virtual void onMainThread(Task task) = 0;
};
