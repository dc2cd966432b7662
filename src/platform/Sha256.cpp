#include "platform/Sha256.h"

#include "platform/LateLibrary.h"

#include <QByteArray>

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// OpenSSL's functions. Only what is saved or checked needs them, and loading them takes a fortieth of the
/// window's start and a thirtieth of its memory.
struct Crypto {
    LateLibrary library{"libcrypto.so." QT_STRINGIFY(OPENSSL_SHLIB_VERSION)};
    PLOVI_LATE_FUNCTION(EVP_DigestFinal_ex);
    PLOVI_LATE_FUNCTION(EVP_DigestInit_ex2);
    PLOVI_LATE_FUNCTION(EVP_DigestUpdate);
    PLOVI_LATE_FUNCTION(EVP_MD_CTX_free);
    PLOVI_LATE_FUNCTION(EVP_MD_CTX_new);
    PLOVI_LATE_FUNCTION(EVP_MD_fetch);
    PLOVI_LATE_FUNCTION(EVP_MD_free);
    PLOVI_LATE_FUNCTION(OPENSSL_init_crypto);
    PLOVI_LATE_FUNCTION(OSSL_LIB_CTX_free);
    PLOVI_LATE_FUNCTION(OSSL_LIB_CTX_new);
};

const Crypto& crypto()
{
    static const Crypto functions;
    return functions;
}

struct Free {
    void operator()(OSSL_LIB_CTX* library) const { crypto().OSSL_LIB_CTX_free(library); }
    void operator()(EVP_MD* digest) const { crypto().EVP_MD_free(digest); }
    void operator()(EVP_MD_CTX* context) const { crypto().EVP_MD_CTX_free(context); }
};

/// The library's implementation, apart from what the machine configures for everybody: a setting that allows
/// only certified algorithms, or that the library cannot read, would take SHA-256 away.
struct Algorithm {
    std::unique_ptr<OSSL_LIB_CTX, Free> library{crypto().OSSL_LIB_CTX_new()};
    std::unique_ptr<EVP_MD, Free> digest{
        library ? crypto().EVP_MD_fetch(library.get(), "SHA256", nullptr) : nullptr};
};

const EVP_MD* algorithm()
{
    // Without this the first digest reads the machine's configuration all the same, only to leave it aside.
    crypto().OPENSSL_init_crypto(OPENSSL_INIT_NO_LOAD_CONFIG, nullptr);
    static const Algorithm algorithm;
    return algorithm.digest.get();
}

tl::unexpected<Failure> unavailable()
{
    return tl::unexpected(
        Failure{u"Sha256"_s, 1, u"Контрольную сумму вычислить не удалось: OpenSSL не работает."_s});
}

} // namespace

struct Sha256::Context {
    std::unique_ptr<EVP_MD_CTX, Free> digest{
        crypto().library.isLoaded() ? crypto().EVP_MD_CTX_new() : nullptr};
    bool isReady = digest && algorithm() && crypto().EVP_DigestInit_ex2(digest.get(), algorithm(), nullptr);
};

Sha256::Sha256() : m_context(std::make_unique<Context>()) { }

Sha256::~Sha256() = default;

Result<void> Sha256::update(std::span<const std::byte> bytes)
{
    if (!m_context->isReady
        || !crypto().EVP_DigestUpdate(m_context->digest.get(), bytes.data(), bytes.size()))
        return unavailable();
    return {};
}

Result<QString> Sha256::finalize()
{
    std::array<char, 32> digest{};
    auto* const bytes = reinterpret_cast<unsigned char*>(digest.data());
    if (!m_context->isReady || !crypto().EVP_DigestFinal_ex(m_context->digest.get(), bytes, nullptr))
        return unavailable();
    return QString::fromLatin1(QByteArray::fromRawData(digest.data(), digest.size()).toHex());
}
