#include "platform/Sha256.h"

#include <QByteArray>

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <array>

using namespace Qt::StringLiterals;

namespace {

template <class T, void (*free)(T*)>
struct Freeing {
    void operator()(T* object) const { free(object); }
};

/// The library's implementation, apart from what the machine configures for everybody: a setting that allows
/// only certified algorithms, or that the library cannot read, would take SHA-256 away.
struct Algorithm {
    std::unique_ptr<OSSL_LIB_CTX, Freeing<OSSL_LIB_CTX, OSSL_LIB_CTX_free>> library{OSSL_LIB_CTX_new()};
    std::unique_ptr<EVP_MD, Freeing<EVP_MD, EVP_MD_free>> digest{
        library ? EVP_MD_fetch(library.get(), "SHA256", nullptr) : nullptr};
};

const EVP_MD* algorithm()
{
    // Without this the first digest reads the machine's configuration all the same, only to leave it aside.
    OPENSSL_init_crypto(OPENSSL_INIT_NO_LOAD_CONFIG, nullptr);
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
    std::unique_ptr<EVP_MD_CTX, Freeing<EVP_MD_CTX, EVP_MD_CTX_free>> digest{EVP_MD_CTX_new()};
    bool isReady = digest && algorithm() && EVP_DigestInit_ex2(digest.get(), algorithm(), nullptr);
};

Sha256::Sha256() : m_context(std::make_unique<Context>()) { }

Sha256::~Sha256() = default;

Result<void> Sha256::update(std::span<const std::byte> bytes)
{
    if (!m_context->isReady || !EVP_DigestUpdate(m_context->digest.get(), bytes.data(), bytes.size()))
        return unavailable();
    return {};
}

Result<QString> Sha256::finalize()
{
    std::array<char, 32> digest{};
    auto* const bytes = reinterpret_cast<unsigned char*>(digest.data());
    if (!m_context->isReady || !EVP_DigestFinal_ex(m_context->digest.get(), bytes, nullptr))
        return unavailable();
    return QString::fromLatin1(QByteArray::fromRawData(digest.data(), digest.size()).toHex());
}
