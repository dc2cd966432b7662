#include "platform/posix/PosixBundles.h"

#include "platform/posix/BundleInfo.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fstream>

using namespace Qt::StringLiterals;

namespace {

class BundleFolder : public testing::Test {
protected:
    Path place(const char* name) const { return toPath(m_folder.path()) / name; }

    Path bundle(const QByteArray& list) const
    {
        Path app = place("Brisko.app");
        std::filesystem::create_directories(app / "Contents" / "MacOS");
        std::ofstream(app / "Contents" / "Info.plist", std::ios::binary) << list.toStdString();
        return app;
    }

private:
    QTemporaryDir m_folder;
};

QByteArray xmlList(const QByteArray& content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>" + content
        + "</dict></plist>";
}

const QByteArray complete = xmlList("<key>CFBundleExecutable</key><string>Бриско</string>"
                                    "<key>CFBundleIdentifier</key><string>org.example.brisko</string>");

TEST_F(BundleFolder, AnXmlListIsRead)
{
    EXPECT_EQ(readBundleInfo(bundle(complete)), (BundleInfo{u"org.example.brisko"_s, u"Бриско"_s}));
}

TEST_F(BundleFolder, ABinaryListIsRead)
{
    // One dictionary { CFBundleIdentifier: "a.b" }: its object, key and value, their offsets, and the
    // trailer.
    const QByteArray list = "bplist00" + QByteArray::fromHex("d10102") + QByteArray::fromHex("5f1012")
        + "CFBundleIdentifier" + "\x53" + "a.b" + QByteArray::fromHex("080b20")
        + QByteArray::fromHex("0000000000000101") + QByteArray::fromHex("0000000000000003")
        + QByteArray::fromHex("0000000000000000") + QByteArray::fromHex("0000000000000024");

    EXPECT_EQ(readBundleInfo(bundle(list)), (BundleInfo{u"a.b"_s, u""_s}));
}

TEST_F(BundleFolder, WhatIsNoBundleHasNoIdentifier)
{
    const PosixBundles bundles;
    std::ofstream(place("File.app")) << "text";
    std::filesystem::create_directories(place("Empty.app") / "Contents");
    std::filesystem::create_directories(place("Odd.app") / "Contents" / "Info.plist");

    for (const char* name : {"Missing.app", "File.app", "Empty.app", "Odd.app"})
        EXPECT_FALSE(bundles.bundleIdentifier(place(name))) << name;
}

TEST_F(BundleFolder, AListWithoutAnIdentifierNamesNone)
{
    const PosixBundles bundles;

    for (const auto& list : {QByteArray(), QByteArray("text"), xmlList(""), complete.left(120),
             xmlList("<key>CFBundleIdentifier</key><integer>1</integer>"),
             xmlList("<key>CFBundleIdentifier</key><string></string>"),
             xmlList("<key>Padding</key><string>" + QByteArray(2'000'000, 'x') + "</string>" + complete)})
        EXPECT_FALSE(bundles.bundleIdentifier(bundle(list))) << list.left(120).toStdString();
}

TEST_F(BundleFolder, TheMainResourcesLieBesideTheProgramBehindAnyLink)
{
    const Path program = bundle(complete) / "Contents" / "MacOS" / "Brisko";
    std::ofstream(program) << "program";
    std::filesystem::create_symlink(program, place("link"));

    const Path resources = std::filesystem::canonical(place("Brisko.app")) / "Contents" / "Resources";
    EXPECT_EQ(PosixBundles(program).mainResources(), resources);
    EXPECT_EQ(PosixBundles(place("link")).mainResources(), resources);
}

TEST_F(BundleFolder, TheRunningProgramIsTheMainOne)
{
    const Path program = std::filesystem::read_symlink("/proc/self/exe");

    EXPECT_EQ(PosixBundles().mainResources(), program.parent_path().parent_path() / "Resources");
}

} // namespace
