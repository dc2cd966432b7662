#pragma once

#include "platform/Buffer.h"
#include "platform/Failure.h"
#include "platform/Path.h"

#include <functional>

/// Reading and writing whole files. Any thread.
class Files {
public:
    using Sink = std::function<void(std::span<const std::byte>)>;

    Files() = default;
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;
    virtual ~Files() = default;

    /// The whole file in one buffer.
    virtual Result<Buffer> read(const Path& file) const = 0;
    /// Hands the whole file to `sink` in order, through one small buffer. After a failure `sink` may have had
    /// a part of it.
    virtual Result<void> readInBlocks(const Path& file, const Sink& sink) const = 0;
    /// Makes `content` the whole content of `file`, flushed to the disk. After a failure the file is what it
    /// was: its former content, or not there.
    virtual Result<void> writeAtomically(const Path& file, std::span<const std::byte> content) const = 0;
};
