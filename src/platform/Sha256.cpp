#include "platform/Sha256.h"

#include "platform/LateLibrary.h"

#include <QByteArray>

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// OpenSSL's functions. Only what is saved or checked needs them, and loading them takes 7 of the 90 ms until
/// the window appears.
struct Crypto {
    Crypto()
    {
        // What a machine's administrator writes in OpenSSL's settings is meant for its connections.
        if (library.isLoaded())
            OPENSSL_init_crypto(OPENSSL_INIT_NO_LOAD_CONFIG, nullptr);
    }

    LateLibrary library{"libcrypto.so." QT_STRINGIFY(OPENSSL_SHLIB_VERSION)};
    PLOVI_LATE_FUNCTION(EVP_DigestFinal_ex);
    PLOVI_LATE_FUNCTION(EVP_DigestInit_ex);
    PLOVI_LATE_FUNCTION(EVP_DigestUpdate);
    PLOVI_LATE_FUNCTION(EVP_MD_CTX_free);
    PLOVI_LATE_FUNCTION(EVP_MD_CTX_new);
    PLOVI_LATE_FUNCTION(EVP_sha256);
    PLOVI_LATE_FUNCTION(OPENSSL_init_crypto);
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
    Context()
        : digest(crypto().library.isLoaded() ? crypto().EVP_MD_CTX_new() : nullptr)
        , isReady(digest && crypto().EVP_DigestInit_ex(digest, crypto().EVP_sha256(), nullptr) == 1)
    {
    }
    ~Context()
    {
        if (digest)
            crypto().EVP_MD_CTX_free(digest);
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    EVP_MD_CTX* digest;
    bool isReady;
};

Sha256::Sha256() : m_context(std::make_unique<Context>()) { }

Sha256::~Sha256() = default;

Result<void> Sha256::update(std::span<const std::byte> bytes)
{
    if (!m_context->isReady || crypto().EVP_DigestUpdate(m_context->digest, bytes.data(), bytes.size()) != 1)
        return unavailable();
    return {};
}

Result<QString> Sha256::finalize()
{
    std::array<char, EVP_MAX_MD_SIZE> digest{};
    unsigned length = 0;
    auto* const bytes = reinterpret_cast<unsigned char*>(digest.data());
    if (!m_context->isReady || crypto().EVP_DigestFinal_ex(m_context->digest, bytes, &length) != 1)
        return unavailable();
    return QString::fromLatin1(QByteArray::fromRawData(digest.data(), length).toHex());
}
