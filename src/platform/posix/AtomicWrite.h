#pragma once

#include "platform/Files.h"
#include "platform/posix/FileDescriptor.h"

/// New content for a file, on its way. It is written to a temporary file beside `destination`, which has no
/// name where the file system can do so, is flushed to the disk, and takes the destination's name last of
/// all. Unless that has happened nothing is left of it; what a process that was killed has left there is
/// cleared by the next one. Links are followed. A file that is replaced hands on its permissions and, as far
/// as the user may, its owner, group, access list and extended attributes; whether it may be replaced is for
/// its folder to say. After a failure nothing more is done.
class AtomicWrite {
public:
    explicit AtomicWrite(const Path& destination);
    ~AtomicWrite();
    AtomicWrite(const AtomicWrite&) = delete;
    AtomicWrite& operator=(const AtomicWrite&) = delete;

    /// Appends `content`. Any thread, one at a time.
    void write(Files::Bytes content);
    /// Replaces the destination. The failure is the first that there was.
    Result<void> commit();

private:
    int findDestination(const Path& destination);
    int create();
    int createNamed();
    int giveName();

    Path m_destination;
    Path m_folder;
    /// Empty while there is no name.
    Path m_temporary;
    FileDescriptor m_file;
    /// The number of the first error, 0 without any.
    int m_error = 0;
};
