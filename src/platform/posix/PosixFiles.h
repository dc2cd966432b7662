#pragma once

#include "platform/Files.h"

/// Files of the system. Only regular files are read or replaced; pipes and devices are refused.
class PosixFiles final : public Files {
public:
    Result<Buffer> read(const Path& file) const override;
    Result<void> readInBlocks(const Path& file, const Sink& sink) const override;
    Result<void> writeAtomically(const Path& file, std::span<const std::byte> content) const override;
};
