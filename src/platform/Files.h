#pragma once

#include "platform/Failure.h"
#include "platform/Path.h"
#include "platform/Role.h"

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

/// A file in one state of its content: two stamps of a place are equal as long as nobody has written to the
/// file, or put another one there.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::uint64_t size = 0;
    /// In nanoseconds; any change of the file sets it to the present.
    std::int64_t changed = 0;

    bool operator==(const FileStamp&) const = default;
};

/// Reading and copying whole files. Any thread.
class Files : public Role {
public:
    using Bytes = std::span<const std::byte>;
    /// Takes the next bytes of a file. A failure ends the reading, which then fails with it.
    using Sink = std::function<Result<void>(Bytes)>;
    using Verdict = std::function<Result<void>()>;

    /// None when nothing lies there. Costs a thousandth of reading an icon.
    virtual std::optional<FileStamp> stamp(const Path& file) const = 0;
    /// The whole file.
    virtual Result<QByteArray> read(const Path& file) const = 0;
    /// Hands the whole file to `sink` in order, through one small block of memory. After a failure `sink` may
    /// have had a part of it.
    virtual Result<void> readInBlocks(const Path& file, const Sink& sink) const = 0;
    /// Reads `source` once into one block of memory, hands it to `sink` as it arrives, and makes the same
    /// memory the whole content of `destination`, flushed to the disk, if `verdict` agrees once all has been
    /// read. After a failure `destination` is what it was: its former content, or not there. A failure of
    /// reading is told first, then the verdict's, then one of writing.
    virtual Result<void> copy(
        const Path& source, const Path& destination, const Sink& sink, const Verdict& verdict) const = 0;
};
