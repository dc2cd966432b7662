#pragma once

#include "platform/Failure.h"
#include "platform/Path.h"

#include <span>

/// An open file of the system; closed with the object.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number);
    FileDescriptor(FileDescriptor&& other) noexcept;
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor();

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

    /// Fills `room` as far as the file reaches: fewer bytes only at its end.
    Result<std::size_t> read(std::span<std::byte> room) const;

private:
    int m_number = -1;
};

/// A file open for reading.
struct ReadableFile {
    FileDescriptor descriptor;
    /// As the system stated it on opening; it may change while the file is read.
    std::size_t size = 0;
};

/// Opens a regular file; anything else is refused, and nothing is waited for.
Result<ReadableFile> openForReading(const Path& file);
