#pragma once

#include "platform/Failure.h"

#include <cstddef>
#include <memory>
#include <span>

/// SHA-256 (FIPS 180-4) over bytes that arrive in pieces. Any thread, one at a time. Fails only where the
/// library that computes it is broken or memory is short.
class Sha256 {
public:
    Sha256();
    ~Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    Result<void> update(std::span<const std::byte> bytes);
    /// The digest of all bytes so far as 64 lower-case hexadecimal digits. Ends the use of this object.
    Result<QString> finalize();

private:
    struct Context;
    std::unique_ptr<Context> m_context;
};
