#include "platform/posix/PosixBundles.h"

#include "platform/TestBundle.h"
#include "platform/posix/BundleInfo.h"
#include "platform/posix/PropertyList.h"

using namespace Qt::StringLiterals;

namespace {

struct BundleFolder : FolderTest {
    const Path app = folder / "Brisko.app";
};

/// A list of these objects, the first of which is its top, with offsets of two bytes and references of one.
QByteArray binaryList(const QByteArrayList& objects)
{
    QByteArray list = "bplist00", offsets;
    for (const QByteArray& object : objects) {
        offsets += char(list.size() >> 8);
        offsets += char(list.size());
        list += object;
    }
    const auto number = [](qsizetype value) { return QByteArray::number(value, 16).rightJustified(16, '0'); };
    return list + offsets
        + QByteArray::fromHex("0000000000000201" + number(objects.size()) + number(0) + number(list.size()));
}

const QByteArray identifierKey = QByteArray::fromHex("5f1012") + "CFBundleIdentifier";
const QByteArray identifier = xmlIdentifier("a.b");
const QByteArray complete = xmlList("<key>Documents</key><array><dict>" + xmlIdentifier("a.b.c")
    + "</dict></array><key>CFBundleExecutable</key><string>Бриско</string>" + identifier);

TEST_F(BundleFolder, AListOfEitherFormIsReadWhateverElseItHolds)
{
    EXPECT_EQ(readBundleInfo(makeBundle(app, complete)), (BundleInfo{u"a.b"_s, u"Бриско"_s}));

    // Beside both texts, lists of lists: each refers twice to the next.
    QByteArrayList objects{QByteArray::fromHex("d3010304020506"), identifierKey, "Sa.b",
        QByteArray::fromHex("5f110012") + "CFBundleExecutable", "Tmany",
        QByteArray::fromHex("660411044004380441043a043e")};
    for (char next = 7; next < 100; ++next)
        objects.append(QByteArray(1, '\xa2') + next + next);
    objects.append("\xa0");
    const QByteArray list = binaryList(objects);
    EXPECT_EQ(readBundleInfo(makeBundle(app, list)), (BundleInfo{u"a.b"_s, u"Бриско"_s}));

    for (qsizetype at = 0; at < list.size(); ++at) {
        QByteArray damaged = list;
        damaged[at] = '\xff';
        propertyListTexts(std::as_bytes(std::span(damaged)), {"CFBundleIdentifier"_L1});
        EXPECT_FALSE(propertyListTexts(std::as_bytes(std::span(list)).first(std::size_t(at)), {}));
    }
}

TEST_F(BundleFolder, WhatIsNoBundleOrHasNoListWithAnIdentifierNamesNone)
{
    const PosixBundles bundles;
    writeFile(folder / "File.app", "text");
    std::filesystem::create_directories(folder / "Odd.app/Contents/Info.plist");
    for (const char* name : {"Missing.app", "File.app", "Odd.app"})
        EXPECT_FALSE(bundles.bundleIdentifier(folder / name)) << name;

    const auto keyAnd = [](const QByteArray& marker, const QByteArray& value) {
        return binaryList({QByteArray::fromHex(marker), identifierKey, QByteArray::fromHex(value)});
    };
    for (const auto& list : {QByteArray(), QByteArray("text"), xmlList(""), complete.left(120),
             complete.chopped(20), xmlList("<key>CFBundleIdentifier</key><integer>1</integer>"),
             xmlList("<key>CFBundleIdentifier</key><string></string>"),
             xmlList("<string>CFBundleIdentifier</string><string>a.b</string>"),
             xmlList("<key>Padding</key><string>" + QByteArray(2'000'000, 'x') + "</string>" + identifier),
             xmlList("<key>Deep</key>" + QByteArray("<array>").repeated(65)
                 + QByteArray("</array>").repeated(65) + identifier),
             "<!DOCTYPE plist [<!ENTITY a \"b\">]>" + complete.mid(38), "<list>" + complete.mid(58),
             binaryList({"Sa.b"}), binaryList({}), keyAnd("a101", ""), keyAnd("d10103", ""),
             keyAnd("d10102", "09"), keyAnd("d10102", "5f1300000000ffffffff"),
             keyAnd("df13ffffffffffffffff0102", "5161")})
        EXPECT_FALSE(bundles.bundleIdentifier(makeBundle(app, list))) << list.left(120).toStdString();
}

TEST_F(BundleFolder, TheMainBundleIsTheOneThatTheProgramLiesInBehindAnyLink)
{
    const Path program = app / "Contents/MacOS/Brisko", link = folder / "link";
    writeFile(program, "program");
    std::filesystem::create_symlink(program, link);
    for (const Path& executable : {program, link})
        EXPECT_EQ(PosixBundles(executable).mainBundle(), app);
    const Path running = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_EQ(PosixBundles().mainBundle(), running.parent_path().parent_path().parent_path());
}

} // namespace
