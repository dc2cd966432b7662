#pragma once

#include "platform/Failure.h"

#include <cstddef>
#include <memory>
#include <span>

struct evp_md_ctx_st;

/// SHA-256 (FIPS 180-4) over bytes that arrive in pieces. Any thread, one at a time. Fails only where the
/// library that computes it is broken or memory is short.
class Sha256 {
public:
    Sha256();

    Result<void> update(std::span<const std::byte> bytes);
    /// The digest of all bytes so far as 64 lower-case hexadecimal digits. Ends the use of this object.
    Result<QString> finalize();

private:
    struct Free {
        void operator()(evp_md_ctx_st* context) const;
    };
    /// None when it could not be made.
    std::unique_ptr<evp_md_ctx_st, Free> m_context;
};
