#include "platform/Buffer.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace {

TEST(Buffer, ABlockIsZeroAndCanBeWrittenToItsEnd)
{
    for (const std::size_t size : {std::size_t{1}, std::size_t{4096}, (std::size_t{5} << 20) + 3}) {
        SCOPED_TRACE(size);

        auto buffer = Buffer::allocate(size);
        ASSERT_TRUE(buffer);
        const auto bytes = buffer->bytes();

        EXPECT_EQ(bytes.size(), size);
        EXPECT_TRUE(std::ranges::all_of(bytes, [](std::byte byte) { return byte == std::byte{0}; }));
        bytes.back() = std::byte{7};
        EXPECT_EQ(std::as_const(*buffer).bytes().back(), std::byte{7});
    }
}

TEST(Buffer, AnEmptyBlockIsABlock)
{
    const auto buffer = Buffer::copyOf({});

    ASSERT_TRUE(buffer);
    EXPECT_EQ(buffer->size(), 0U);
}

TEST(Buffer, MoreThanTheSystemHasIsRefused)
{
    constexpr auto all = std::numeric_limits<std::size_t>::max();

    for (const std::size_t size : {all, all / 2, all / 4})
        EXPECT_FALSE(Buffer::allocate(size)) << size;
}

TEST(Buffer, ItsContentMovesAlongAndShrinksAtItsEnd)
{
    const std::array content{std::byte{1}, std::byte{2}, std::byte{3}};
    auto first = Buffer::copyOf(content);
    ASSERT_TRUE(first);

    Buffer second = std::move(*first);
    second.shrink(2);
    second.shrink(9);

    EXPECT_THAT(second.bytes(), testing::ElementsAre(std::byte{1}, std::byte{2}));
    EXPECT_EQ(first->size(), 0U);
}

} // namespace
