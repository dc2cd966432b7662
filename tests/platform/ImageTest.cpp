#include "platform/Image.h"

#include "platform/Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

using pictures::File;
using pictures::fromHex;
using pictures::iconSet;
using pictures::joined;

namespace {

constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t green = 0xFF00FF00;
constexpr std::uint32_t blue = 0x800000FF;

std::optional<Image> decode(const File& file, int edge = 64)
{
    return decodeImage(file, edge);
}

File repeated(const char* digits, int count)
{
    File file;
    for (int i = 0; i < count; ++i)
        std::ranges::copy(fromHex(digits), std::back_inserter(file));
    return file;
}

TEST(Image, APngIsRead)
{
    const Image image = pictures::colourful(13, 7);

    EXPECT_EQ(decode(pictures::png(image)), image);
}

TEST(Image, AJpeg2000FileAndABareCodestreamAreRead)
{
    const Image image = pictures::colourful(37, 21);

    for (const auto codec : {OPJ_CODEC_JP2, OPJ_CODEC_J2K})
        EXPECT_EQ(decode(pictures::jpeg2000(image, codec)), image);
}

TEST(IconSet, TheSmallestSufficientPictureIsChosen)
{
    const File set = iconSet(
        {{"TOC ", fromHex("69636e7600000010")}, {"ic07", pictures::jpeg2000(pictures::plain(128, 128, red))},
            {"xxxx", pictures::png(pictures::plain(32, 20, green))},
            {"icp4", pictures::png(pictures::plain(16, 16, blue))}});

    for (const auto& [edge, width] :
        {std::pair{-1, 16}, {16, 16}, {17, 32}, {32, 32}, {33, 128}, {1000, 128}})
        EXPECT_EQ(decode(set, edge)->width, width) << edge;
}

TEST(IconSet, DamagedPicturesArePassedOver)
{
    File broken = pictures::png(pictures::plain(64, 64, red));
    broken.resize(broken.size() - 20);
    const auto small = pictures::plain(32, 32, green);
    const auto large = pictures::plain(256, 256, blue);

    EXPECT_EQ(
        decode(iconSet({{"ic12", broken}, {"ic11", pictures::png(small)}, {"ic08", pictures::png(large)}})),
        large);
    EXPECT_EQ(decode(iconSet({{"ic12", broken}, {"ic11", pictures::png(small)}})), small);
    EXPECT_EQ(decode(iconSet({{"ic12", broken}})), std::nullopt);
}

TEST(IconSet, RunLengthPictureTakesItsMask)
{
    // Two runs of 130 and 126 for red and for blue; for green 128 samples as they are and a run as long.
    const File planes = joined({fromHex("ff10fb107f"), repeated("20", 128), fromHex("fd20ff30fb30")});
    const File mask = repeated("80", 256);

    EXPECT_EQ(decode(iconSet({{"is32", planes}, {"s8mk", mask}})), pictures::plain(16, 16, 0x80102030));
    EXPECT_EQ(decode(iconSet({{"is32", planes}})), pictures::plain(16, 16, 0xFF102030));
    EXPECT_EQ(decode(iconSet({{"is32", fromHex("ff10fb10")}})), std::nullopt);
}

TEST(IconSet, PackedArgbIsRead)
{
    const File planes = fromHex("41524742ff80fb80ff10fb10ff20fb20ff30fb30");

    EXPECT_EQ(decode(iconSet({{"ic04", planes}})), pictures::plain(16, 16, 0x80102030));
    EXPECT_EQ(decode(iconSet({{"ic05", planes}})), std::nullopt);
}

TEST(Image, WhatIsNoPictureIsNone)
{
    EXPECT_EQ(decode({}), std::nullopt);
    EXPECT_EQ(decode(fromHex("69636e73")), std::nullopt);
    EXPECT_EQ(decode(iconSet({})), std::nullopt);
    EXPECT_EQ(decode(iconSet({{"name", fromHex("00")}})), std::nullopt);
}

TEST(Image, AClaimOfManyPixelsIsNotBelieved)
{
    File file = pictures::png(pictures::plain(1, 1, red));
    std::ranges::copy(fromHex("0000400000004000"), file.begin() + 16);

    EXPECT_EQ(decode(file), std::nullopt);
}

TEST(Image, AJpeg2000OfCountlessPrecinctsIsNotTried)
{
    const File whole = pictures::jpeg2000(pictures::plain(8, 8, red), OPJ_CODEC_J2K);
    const File segment = fromHex("ff52000c00");
    const auto style = std::search(whole.begin(), whole.end(), segment.begin(), segment.end());
    ASSERT_NE(style, whole.end());

    // The same segment, now with the precincts of its three resolutions.
    const auto withPrecincts = [&](const char* exponents) {
        return joined({File(whole.begin(), style), fromHex("ff52000f01"), File(style + 5, style + 14),
            fromHex(exponents), File(style + 14, whole.end())});
    };
    EXPECT_TRUE(decode(withPrecincts("ffffff")));
    EXPECT_FALSE(decode(withPrecincts("00ffff")));
}

// Whatever the bytes, there is a whole picture or none; the sanitizers watch.
TEST(Image, AnyBytesAreSafe)
{
    const Image image = pictures::colourful(16, 16);
    const File png = pictures::png(image);
    const File jpeg2000 = pictures::jpeg2000(image);
    const File packed = repeated("81200710", 128);
    const std::array files{png, jpeg2000, pictures::jpeg2000(image, OPJ_CODEC_J2K),
        iconSet({{"is32", packed}, {"s8mk", packed}, {"ic04", joined({fromHex("41524742"), packed})},
            {"icp5", png}, {"ic07", jpeg2000}})};
    std::mt19937 random(1);
    const auto below = [&random](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };

    for (const File& file : files) {
        for (int round = 0; round < 400; ++round) {
            File damaged = file;
            for (std::size_t i = below(4); i > 0; --i)
                damaged[below(std::min<std::size_t>(damaged.size(), 300))] = std::byte(below(256));
            damaged.resize(round % 2 == 0 ? damaged.size() : below(damaged.size()));

            const auto result = decode(damaged, static_cast<int>(below(40)));

            ASSERT_TRUE(
                !result || std::ssize(result->pixels) == std::ptrdiff_t{result->width} * result->height);
        }
    }
}

} // namespace
