#include "platform/Sha256.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

namespace {

QString digest(const std::string& content, std::size_t pieceSize)
{
    Sha256 hasher;
    auto rest = std::as_bytes(std::span(content));
    while (!rest.empty()) {
        const auto piece = rest.first(std::min(pieceSize, rest.size()));
        hasher.update(piece);
        rest = rest.subspan(piece.size());
    }
    return hasher.finalize();
}

// The examples of FIPS 180-2, appendix B.
TEST(Sha256, TheExamplesOfTheStandardHold)
{
    struct Example {
        std::string content;
        const char* digest;
    };
    const std::array examples{
        Example{"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        Example{"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        Example{
            std::string(1'000'000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
    };

    for (const auto& [content, expected] : examples) {
        EXPECT_EQ(digest(content, content.size()), QLatin1StringView(expected));
        EXPECT_EQ(digest(content, 97), QLatin1StringView(expected));
    }
}

} // namespace
