#include "platform/Sha256.h"

#include <QByteArray>

#include <openssl/evp.h>

#include <array>

namespace {

// The library can fail here only for want of memory or of the algorithm itself, and a wrong digest is worse
// than none.
void require(bool succeeded)
{
    if (!succeeded)
        qFatal("SHA-256 is not available.");
}

} // namespace

struct Sha256::Context {
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> digest{EVP_MD_CTX_new(), &EVP_MD_CTX_free};
};

Sha256::Sha256() : m_context(std::make_unique<Context>())
{
    require(m_context->digest && EVP_DigestInit_ex(m_context->digest.get(), EVP_sha256(), nullptr));
}

Sha256::~Sha256() = default;

void Sha256::update(std::span<const std::byte> bytes)
{
    require(EVP_DigestUpdate(m_context->digest.get(), bytes.data(), bytes.size()));
}

QString Sha256::finalize()
{
    std::array<char, 32> digest{};
    auto* bytes = reinterpret_cast<unsigned char*>(digest.data());
    require(EVP_DigestFinal_ex(m_context->digest.get(), bytes, nullptr));
    return QString::fromLatin1(QByteArray::fromRawData(digest.data(), digest.size()).toHex());
}
