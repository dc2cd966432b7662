#pragma once

#include "platform/Role.h"

#include <functional>

/// Work away from the main thread, and the way back.
class Jobs : public Role {
public:
    using Task = std::function<void()>;

    /// Runs `work`, which lets no exception out, in the background, then, on the main thread, the task that
    /// it returned. Any thread.
    virtual void start(std::function<Task()> work) = 0;
    /// Runs `task` on the main thread, after the current event. Any thread.
    virtual void onMainThread(Task task) = 0;
};
