#pragma once

#include "platform/Files.h"

/// Files of the system. Only regular files are read or replaced; pipes and devices are refused.
class PosixFiles final : public Files {
public:
    std::optional<FileStamp> stamp(const Path& file) const override;
    Result<QByteArray> read(const Path& file) const override;
    Result<void> readInBlocks(const Path& file, const Sink& sink) const override;
    Result<void> copy(
        const Path& source, const Path& destination, const Sink& sink, const Verdict& verdict) const override;
};
