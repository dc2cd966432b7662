#include "pack/Bundle.h"

#include "catalog/Catalog.h"
#include "pack/Files.h"
#include "support/Samples.h"
#include "tools/SampleCollection.h"

#include <QCryptographicHash>

#include <gmock/gmock.h>

#include <chrono>
#include <functional>

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::Key;

namespace {

struct Mistake {
    const char* name;
    std::function<void(const SampleCollection&)> make;
    /// The line that the maker sees, without the temporary folder.
    QString line;
};

std::function<void(const SampleCollection&)> edit(const char* before, const char* after)
{
    return [=](const auto& sample) { sample.edit(before, after); };
}

std::function<void(const SampleCollection&)> remove(const char* place)
{
    return [=](const auto& sample) { fs::remove_all(sample.path(place)); };
}

const Mistake mistakes[]{
    {"no collection", remove("collection/collection.json"),
        u"cannot read collection/collection.json: No such file or directory"_s},
    {"broken JSON", edit("\"id\": \"bemmo\"", "\"id\" \"bemmo\""),
        u"collection/collection.json:5: missing name separator"_s},
    {"not a list", [](const auto& sample) { sample.write("collection/collection.json", "{}"); },
        u"collection/collection.json: it must be a list of entries"_s},
    {"not an entry", [](const auto& sample) { sample.write("collection/collection.json", "[1]"); },
        u"collection/collection.json, entry 1: it must be an object"_s},
    {"missing key", edit("\"tint\": \"blue\",", ""),
        u"collection/collection.json, entry 2: the key \"tint\" is missing"_s},
    {"wrong text", edit("\"blue\"", "7"),
        u"collection/collection.json, entry 2: the key \"tint\" must be a text"_s},
    {"wrong list", edit("[\"один\", \"два\"]", "[\"один\", 2]"),
        u"collection/collection.json, entry 1: the key \"features\" must be a list of texts"_s},
    {"unknown key", edit("\"tint\": \"blue\"", "\"tint\": \"blue\", \"bytes\": 1"),
        u"collection/collection.json, entry 2: the key \"bytes\" is not known"_s},
    {"shared id", edit("\"bemmo\"", "\"alvi\""),
        u"collection/collection.json, entry 2: another entry has the same id"_s},
    {"shared name", edit("\"Bemmo\"", "\"Alvi\""),
        u"collection/collection.json, entry 2: another entry has the same name"_s},
    {"shared archive", edit("Bemmo-2.0.zip", "Alvi-1.0.zip"),
        u"collection/collection.json, entry 2: another entry has the same archive"_s},
    {"archive elsewhere", edit("Bemmo-2.0.zip", "../Bemmo.zip"),
        u"collection/collection.json, entry 2: the archive \"../Bemmo.zip\" cannot be a file name"_s},
    {"no name", edit("\"Bemmo\"", "\"\""),
        u"collection/collection.json, entry 2: the name \"\" cannot be a file name"_s},
    {"no icon", remove("collection/icons/Bemmo.svg"),
        u"cannot read collection/icons/Bemmo.svg: No such file or directory"_s},
    {"texts in an icon",
        [](const auto& sample) { sample.write("collection/icons/Bemmo.svg", "<svg><text>B</text></svg>"); },
        u"cannot draw collection/icons/Bemmo.svg: it has texts; turn them into paths"_s},
    {"no brand image", remove("collection/Brand.svg"),
        u"cannot read collection/Brand.svg: No such file or directory"_s},
    {"no screenshot", remove("collection/BriskoScreen.png"),
        u"cannot read collection/BriskoScreen.png: No such file or directory"_s},
    {"no application", remove("apps/Bemmo.app/Contents/Info.plist"),
        u"apps/Bemmo.app is no application: it has no Contents/Info.plist"_s},
    {"no place for the output", [](const auto& sample) { sample.write("out", "a file"); },
        u"cannot make out/Packages: Not a directory"_s},
};

} // namespace

TEST(Bundle, TheStoreReadsItsCatalog)
{
    const SampleCollection sample;

    ASSERT_TRUE(packBundle(sample.order()));

    const auto json = readFile(sample.path("out/catalog.json")).value();
    const auto archive = readFile(sample.path("out/Packages/Alvi-1.0.zip")).value();
    const auto catalog = decodeCatalog(std::as_bytes(std::span(json.constData(), json.size()))).value();
    ASSERT_EQ(catalog.size(), 2U);
    EXPECT_EQ(catalog.front(),
        (StoreApp{u"alvi"_s, u"Alvi"_s, u"Утилиты"_s, u"S"_s, u"H"_s, u"\"D\"\n\\"_s, u"red"_s, u"1.0"_s,
            u"org.example.Alvi"_s, u"13"_s, u"Alvi-1.0.zip"_s,
            QString::fromLatin1(QCryptographicHash::hash(archive, QCryptographicHash::Sha256).toHex()),
            u"arm64"_s, {u"один"_s, u"два"_s}, archive.size()}));
    EXPECT_TRUE(json.contains("Утилиты"));
}

TEST(Bundle, OnlyTheContentOfTheCollectionDecidesTheBytes)
{
    const SampleCollection sample;

    ASSERT_TRUE(packBundle(sample.order("first")));
    const auto program = sample.path("apps/Alvi.app/Contents/MacOS/Alvi");
    fs::last_write_time(program, fs::last_write_time(program) - std::chrono::hours(48));
    ASSERT_TRUE(packBundle(sample.order("second")));

    const auto files = filesBelow(sample.path("first"));
    EXPECT_EQ(files, filesBelow(sample.path("second")));
    EXPECT_THAT(files,
        ElementsAre(Key("Alvi.icns"), Key("Bemmo.icns"), Key("Brand.png"), Key("BriskoScreen.png"),
            Key("Packages/Alvi-1.0.zip"), Key("Packages/Bemmo-2.0.zip"), Key("catalog.json")));
}

TEST(Bundle, AMistakeIsReportedInOneLineBeforeAnythingIsWritten)
{
    for (const auto& mistake : mistakes) {
        SCOPED_TRACE(mistake.name);
        const SampleCollection sample;
        mistake.make(sample);

        const auto packed = packBundle(sample.order());

        ASSERT_FALSE(packed);
        EXPECT_EQ(QString(packed.error()).remove(toText(sample.path(""))), mistake.line);
        EXPECT_FALSE(fs::is_directory(sample.path("out")));
    }
}
