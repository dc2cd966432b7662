#pragma once

#include "platform/Failure.h"
#include "platform/Path.h"

#include <memory>

/// A hidden folder beside a target, in which the target is built whole and then put in its place in one step.
/// Only one run at a time has it. What an interrupted run left in it is removed.
class Staging {
public:
    /// Fails when another run has the folder.
    static Result<std::unique_ptr<Staging>> beside(const Path& target);

    Staging(const Staging&) = delete;
    Staging& operator=(const Staging&) = delete;
    /// Removes the folder with all that is still in it.
    ~Staging();

    /// Where to build.
    Path place() const;
    /// Flushes what was built to the disk and exchanges it with the target. After a failure the target is
    /// what it was.
    Result<void> publish();

private:
    Staging(Path target, Path folder, int lock);

    Path m_target;
    Path m_folder;
    int m_lock;
};
