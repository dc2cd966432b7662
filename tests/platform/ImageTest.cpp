#include "platform/Image.h"

#include <QByteArray>

#include <gtest/gtest.h>
#include <png.h>

#include <bit>
#include <filesystem>
#include <fstream>

namespace {

using File = QByteArray;
using std::filesystem::directory_iterator;

constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t green = 0xFF00FF00;

const std::filesystem::path pictures = PLOVI_PICTURES;

std::optional<Image> decode(const File& file, int edge = 64)
{
    return decodeImage(std::as_bytes(std::span(file.data(), static_cast<std::size_t>(file.size()))), edge);
}

File fixture(const std::filesystem::path& name)
{
    std::ifstream stream(pictures / name, std::ios::binary);
    return File::fromStdString({std::istreambuf_iterator(stream), {}});
}

Image plain(int width, int height, std::uint32_t colour)
{
    return {width, height, std::vector(static_cast<std::size_t>(width * height), colour)};
}

// Every pixel differs from its neighbours, in alpha too.
Image colourful(int width, int height)
{
    Image image = plain(width, height, 0);
    std::uint32_t colour = 0x12345678;
    for (auto& pixel : image.pixels)
        pixel = colour = colour * 1664525 + 1013904223;
    return image;
}

File png(const Image& image)
{
    png_image writer{};
    writer.version = PNG_IMAGE_VERSION;
    writer.width = static_cast<png_uint_32>(image.width);
    writer.height = static_cast<png_uint_32>(image.height);
    writer.format = std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(writer);
    File file(static_cast<qsizetype>(size), '\0');
    png_image_write_to_memory(&writer, file.data(), &size, 0, image.pixels.data(), 0, nullptr);
    return file.first(static_cast<qsizetype>(size));
}

File hex(const char* digits)
{
    return File::fromHex(digits);
}

// A PNG file that says it were of this size.
File claiming(const char* size)
{
    return png(plain(1, 1, red)).replace(16, 8, hex(size));
}

File iconSet(std::initializer_list<std::pair<File, File>> entries)
{
    const auto framed = [](const File& type, const File& content) {
        return type + hex(File::number(content.size() + 8, 16).rightJustified(8, '0')) + content;
    };
    File content;
    for (const auto& [type, picture] : entries)
        content += framed(type, picture);
    return framed("icns", content);
}

TEST(Image, PicturesOfEveryKindAreRead)
{
    for (const File& file : {png(colourful(37, 21)), fixture("colourful.jp2"), fixture("colourful.j2k")})
        EXPECT_EQ(decode(file), colourful(37, 21));

    // The second row: the samples count down, from 247, in the second component, and up by four in the
    // others.
    for (const auto& [name, pixel] : {std::pair{"grey.jp2", 0xFF202020}, {"grey-alpha.jp2", 0xF7202020},
             {"rgb.jp2", 0xFF20F722}, {"sixteen-bits.png", 0xFF808080}})
        EXPECT_EQ(decode(fixture(name)).value().pixels.at(8), pixel) << name;
}

TEST(Image, Jpeg2000IsDecodedAtTheSizeThatIsAskedFor)
{
    const File file = fixture("red-128.jp2");
    for (const auto& [edge, width] : {std::pair{1, 32}, {32, 32}, {33, 64}, {64, 64}, {65, 128}, {1000, 128}})
        EXPECT_EQ(decode(file, edge), plain(width, width, red)) << edge;
    EXPECT_EQ(decode(fixture("irreversible-512.j2k"), 512).value().width, 512);
}

TEST(Image, WhatAsksForMoreThanAnIconIsRefusedByItsHeaders)
{
    for (const auto& entry : directory_iterator(pictures / "accepted"))
        EXPECT_TRUE(decode(fixture(entry.path()))) << entry.path();
    for (const auto& entry : directory_iterator(pictures / "refused"))
        EXPECT_EQ(decode(fixture(entry.path()), 1024), std::nullopt) << entry.path();

    EXPECT_EQ(decode(claiming("0000400000004000")), std::nullopt);
    EXPECT_EQ(decode(claiming("0000000100004001")), std::nullopt);
}

TEST(Image, WhatIsTriedOfASetIsAddedUp)
{
    const File damaged = claiming("000009C4000009C4");
    const File large = png(plain(2600, 2000, green));

    EXPECT_TRUE(decode(iconSet({{"ic10", large}}), 2000));
    EXPECT_FALSE(decode(iconSet({{"ic09", damaged}, {"ic10", large}}), 2000));
}

TEST(IconSet, TheSmallestSufficientPictureIsChosen)
{
    const File set = iconSet({{"TOC ", hex("69636e7600000010")}, {"ic07", fixture("red-128.jp2")},
        {"xxxx", png(plain(32, 20, green))}, {"icp4", png(plain(16, 16, green))}});

    for (const auto& [edge, width] : {std::pair{-1, 16}, {16, 16}, {17, 32}, {33, 64}, {1000, 128}})
        EXPECT_EQ(decode(set, edge)->width, width) << edge;
}

TEST(IconSet, DamagedPicturesArePassedOver)
{
    const File broken = claiming("0000004000000040");
    const auto entry = [](int edge) { return std::pair{File("icon"), png(plain(edge, edge, green))}; };

    EXPECT_EQ(decode(iconSet({{"ic12", broken}, entry(32), entry(256)})), plain(256, 256, green));
    EXPECT_EQ(decode(iconSet({{"ic12", broken}, entry(32)})), plain(32, 32, green));
}

TEST(IconSet, PackedPicturesAreRead)
{
    // Two runs of 130 and 126 for red and for blue; for green 128 samples as they are and a run as long.
    const File planes = hex("ff10fb107f") + File(128, '\x20') + hex("fd20ff30fb30");
    const File argb = hex("41524742ff80fb80ff10fb10ff20fb20ff30fb30");
    EXPECT_EQ(decode(iconSet({{"is32", planes}, {"s8mk", File(256, '\x80')}})), plain(16, 16, 0x80102030));
    EXPECT_EQ(decode(iconSet({{"is32", planes}})), plain(16, 16, 0xFF102030));
    EXPECT_EQ(decode(iconSet({{"is32", hex("102030").repeated(256)}})), plain(16, 16, 0xFF102030));
    EXPECT_EQ(decode(iconSet({{"is32", hex("ff10fb10")}})), std::nullopt);
    EXPECT_EQ(decode(iconSet({{"ic04", argb}})), plain(16, 16, 0x80102030));
    EXPECT_EQ(decode(iconSet({{"ic05", argb}})), std::nullopt);
}

TEST(Image, WhatIsNoPictureIsNone)
{
    const File whole = png(plain(8, 8, red));
    for (const File& file : {File(), hex("69636e73"), iconSet({}), iconSet({{"name", hex("00")}}),
             whole.first(20), whole.first(whole.size() - 1), fixture("colourful.j2k").first(60),
             fixture("sycc.jp2"), fixture("twelve-bits.jp2")})
        EXPECT_EQ(decode(file), std::nullopt);
}

} // namespace
