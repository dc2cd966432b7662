#pragma once

#include "platform/Path.h"

/// Tells whether anything has happened in a set of folders: an entry came, went or got another name, or a
/// file was written. The system notes a change before the call that makes it returns, so that no change is
/// missed, and nothing is done while nobody asks. One thread.
class FolderWatch {
public:
    FolderWatch();
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    /// Begins anew: what is added from here on decides whether the answers can be relied on.
    void restart();
    /// Watches a folder from now on. One that is not there, or that the user may not read, is passed over.
    void add(const Path& folder);
    /// Whether something happened since the last call. Always true before the first restart() and while a
    /// folder cannot be watched: it lies on another machine, or the system's limits are reached.
    bool takeChange();

private:
    int m_descriptor;
    bool m_isReliable = false;
};
