#include "platform/Sha256.h"

#include "platform/LateLibrary.h"

#include <QByteArray>

// What is asked for by name first builds a table of every algorithm, a tenth of the self-test.
#define OPENSSL_SUPPRESS_DEPRECATED
#include <openssl/crypto.h>
#include <openssl/sha.h>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// OpenSSL's functions. Only what is saved or checked needs them, and loading them takes a fortieth of the
/// window's start and a thirtieth of its memory.
struct Crypto {
    LateLibrary library{"libcrypto.so." QT_STRINGIFY(OPENSSL_SHLIB_VERSION)};
    PLOVI_LATE_FUNCTION(SHA256_Final);
    PLOVI_LATE_FUNCTION(SHA256_Init);
    PLOVI_LATE_FUNCTION(SHA256_Update);

    bool isThere() const { return SHA256_Final && SHA256_Init && SHA256_Update; }
};

const Crypto& crypto()
{
    static const Crypto functions;
    return functions;
}

tl::unexpected<Failure> unavailable()
{
    return tl::unexpected(
        Failure{u"Sha256"_s, 1, u"Контрольную сумму вычислить не удалось: OpenSSL не работает."_s});
}

} // namespace

struct Sha256::Context {
    SHA256_CTX digest;
    bool isReady = crypto().isThere() && crypto().SHA256_Init(&digest);
};

Sha256::Sha256() : m_context(std::make_unique<Context>()) { }

Sha256::~Sha256() = default;

Result<void> Sha256::update(std::span<const std::byte> bytes)
{
    if (!m_context->isReady || !crypto().SHA256_Update(&m_context->digest, bytes.data(), bytes.size()))
        return unavailable();
    return {};
}

Result<QString> Sha256::finalize()
{
    std::array<char, SHA256_DIGEST_LENGTH> digest{};
    auto* const bytes = reinterpret_cast<unsigned char*>(digest.data());
    if (!m_context->isReady || !crypto().SHA256_Final(bytes, &m_context->digest))
        return unavailable();
    return QString::fromLatin1(QByteArray::fromRawData(digest.data(), digest.size()).toHex());
}
