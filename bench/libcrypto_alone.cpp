// The least that a program which computes a SHA-256 can be: what the self-test is compared with.

#include <openssl/evp.h>

int main()
{
    unsigned char digest[EVP_MAX_MD_SIZE];
    return EVP_Digest("plovi", 5, digest, nullptr, EVP_sha256(), nullptr) ? 0 : 1;
}
