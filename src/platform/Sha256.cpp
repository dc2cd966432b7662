#include "platform/Sha256.h"

#include "platform/LateLibrary.h"

#include <QByteArray>

#include <openssl/evp.h>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// OpenSSL. Only what is saved or checked needs it, and loading it takes 7 of the 90 ms of the window's
/// start.
struct Crypto {
    LateLibrary library{"libcrypto.so." QT_STRINGIFY(OPENSSL_SHLIB_VERSION)};
    PLOVI_LATE_FUNCTION(EVP_DigestFinal_ex);
    PLOVI_LATE_FUNCTION(EVP_DigestInit_ex);
    PLOVI_LATE_FUNCTION(EVP_DigestUpdate);
    PLOVI_LATE_FUNCTION(EVP_MD_CTX_free);
    PLOVI_LATE_FUNCTION(EVP_MD_CTX_new);
    PLOVI_LATE_FUNCTION(EVP_MD_fetch);
    PLOVI_LATE_FUNCTION(OSSL_LIB_CTX_new);

    /// Found without the machine's configuration, which may forbid or break it.
    EVP_MD* sha256 = library.isLoaded() ? EVP_MD_fetch(OSSL_LIB_CTX_new(), "SHA2-256", nullptr) : nullptr;
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

void Sha256::Free::operator()(evp_md_ctx_st* context) const
{
    crypto().EVP_MD_CTX_free(context);
}

Sha256::Sha256()
{
    if (crypto().sha256)
        m_context.reset(crypto().EVP_MD_CTX_new());
    if (m_context && !crypto().EVP_DigestInit_ex(m_context.get(), crypto().sha256, nullptr))
        m_context.reset();
}

Result<void> Sha256::update(std::span<const std::byte> bytes)
{
    if (!m_context || !crypto().EVP_DigestUpdate(m_context.get(), bytes.data(), bytes.size()))
        return unavailable();
    return {};
}

Result<QString> Sha256::finalize()
{
    std::array<char, 32> digest{};
    auto* const bytes = reinterpret_cast<unsigned char*>(digest.data());
    if (!m_context || !crypto().EVP_DigestFinal_ex(m_context.get(), bytes, nullptr))
        return unavailable();
    return QString::fromLatin1(QByteArray::fromRawData(digest.data(), digest.size()).toHex());
}
