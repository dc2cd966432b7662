#include "catalog/Catalog.h"

#include "support/FakePlatform.h"
#include "support/Samples.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

/// How many more requests for memory succeed; negative: all.
static int requestsLeft = -1;

void* operator new(std::size_t size)
{
    void* const memory = requestsLeft == 0 ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    requestsLeft -= requestsLeft > 0 ? 1 : 0;
    return memory;
}

// The library that parses asks in this way too; both must come from the same place.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return std::malloc(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

Result<Catalog> decode(const QByteArray& json)
{
    return decodeCatalog(std::as_bytes(std::span(json)));
}

std::string failureOf(const QByteArray& json)
{
    const auto catalog = decode(json);
    return catalog ? "decoded" : catalog.error().localizedDescription.toStdString();
}

/// Two entries; in the second one `before` has become `after`.
QByteArray edited(const QByteArray& before, const QByteArray& after)
{
    QByteArray json = encodeCatalog({sample::brisko(), sample::kadrilo()});
    const auto place = json.lastIndexOf(before);
    EXPECT_GE(place, 0) << before.toStdString();
    return json.replace(place, before.size(), after);
}

TEST(Catalog, KeepsEveryFieldAndTheOrderOfTheFile)
{
    EXPECT_EQ(decode("[]"), Catalog());
    EXPECT_EQ(decode(encodeCatalog({sample::kadrilo(), sample::brisko()})),
        (Catalog{sample::kadrilo(), sample::brisko()}));
    QByteArray json = "[{\"bytes\":7,\"features\":[\"ф\",\"₽𝄞\\ud834\\udd1e\"],\"price\":[1]";
    for (const std::string_view key : codingKeyTexts) {
        if (key != "bytes" && key != "features")
            json += ",\"" + QByteArray(key.data()) + "\":\"" + key.data() + '"';
    }
    EXPECT_EQ(decode(json + "}]"),
        (Catalog{{u"id"_s, u"name"_s, u"category"_s, u"subtitle"_s, u"headline"_s, u"description"_s,
            u"tint"_s, u"version"_s, u"bundleID"_s, u"minimum"_s, u"archive"_s, u"sha256"_s,
            u"architecture"_s, {u"ф"_s, u"₽𝄞𝄞"_s}, 7}}));
}

TEST(Catalog, KeepsTextsOfEveryWidthAndBracesInThem)
{
    const QStringList parts{u"я"_s, u"ascii "_s, u"слово "_s, u"₽"_s, u"𝄞"_s, u"}"_s};
    StoreApp app = sample::brisko();
    for (int number = 0; number < 1296; ++number) {
        app.description.clear();
        for (int rest = number; rest > 0; rest /= 6)
            app.description += parts[rest % 6];
        ASSERT_EQ(decode(encodeCatalog({app, app}))->at(1).description, app.description);
    }
    app.headline = QString(20, u'}');
    EXPECT_EQ(decode(encodeCatalog({app, app})), (Catalog{app, app}));
}

TEST(Catalog, KeepsTextsApartThatLieInOneBlockOfMemory)
{
    Catalog apps{sample::brisko(), sample::kadrilo(), sample::brisko()};
    for (std::size_t index = 0; index < apps.size(); ++index)
        apps[index].description = QString(qsizetype(16'382 + index), u'x');
    auto decoded = decode(encodeCatalog(apps));
    StoreApp copy = decoded->at(1);
    copy.id += u"…"_s;
    EXPECT_EQ(decoded, apps);
    decoded = Catalog();
    copy.id = apps[1].id;
    EXPECT_EQ(copy, apps[1]);
}

TEST(Catalog, NamesTheEntryAndTheKeyThatIsMissingNullOrOfAnotherType)
{
    for (const std::string_view text : codingKeyTexts) {
        const QByteArray key(text.data());
        const auto names = testing::AllOf(HasSubstr("записи 2"), HasSubstr("«" + std::string(text) + "»"));

        EXPECT_THAT(failureOf(edited('"' + key + "\": ", "\"x\": ")), names);
        EXPECT_THAT(failureOf(edited('"' + key + "\": ", '"' + key + "\": null, \"x\": ")), names);
        EXPECT_THAT(failureOf(edited('"' + key + "\": ", '"' + key + "\": {}, \"x\": ")), names);
        EXPECT_TRUE(codingKey(text));
    }
    EXPECT_EQ(codingKey("ID"), std::nullopt);
    EXPECT_THAT(failureOf("[{\"bytes\": \"wrong\", \"id\": 1}]"), HasSubstr("«id»"))
        << "the first in key order";
    EXPECT_THAT(failureOf(edited("\"Быстро\"", "1")), HasSubstr("«features»"));
}

TEST(Catalog, TakesOnlyWholeNumbersOf64BitsForBytes)
{
    for (const qint64 number : {std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min()})
        EXPECT_EQ(decode(edited("31000000", QByteArray::number(number)))->at(1).bytes, number);
    for (const char* const wrong :
        {"9223372036854775808", "123456789012345678901234567890", "1.5", "\"12\"", "true"})
        EXPECT_THAT(failureOf(edited("31000000", wrong)), HasSubstr("«bytes»")) << wrong;
    EXPECT_EQ(failureOf(edited("\"bytes\"", "\"x\": 123456789012345678901234567890, \"bytes\"")), "decoded");
}

TEST(Catalog, FailsAsAWholeWhenTheFileIsBroken)
{
    for (const auto& [json, expected] : {
             std::pair<QByteArray, const char*>("", "строке 1"),
             {"PloviStore\n", "строке 1"},
             {"[\n1,\n2", "строке 3"},
             {edited("\n]", ",]"), "JSON"},
             {edited("},", "}"), "JSON"},
             {edited("]", "]]"), "JSON"},
             {edited("Быстро", "\xff\xfe"), "JSON"},
             {QByteArray(100'000, '['), "JSON"},
             {"{}", "список"},
             {"\"[]\"", "список"},
             {"[\"brisko\"]", "Запись 1"},
         })
        EXPECT_THAT(failureOf(json), HasSubstr(expected))
            << json.first(std::min<qsizetype>(json.size(), 20)).toStdString();
}

TEST(Catalog, SaysThatMemoryIsShort)
{
    const QByteArray json = encodeCatalog({sample::brisko()});
    int failures = 0;
    for (auto catalog = decode("{}"); !catalog; ++failures) {
        requestsLeft = failures;
        catalog = decode(json);
        requestsLeft = -1;
        ASSERT_TRUE(catalog || catalog.error() == systemFailure(ENOMEM));
    }
    EXPECT_GT(failures, 1);
}

TEST(Catalog, IsReadFromTheResourceFolder)
{
    FakePlatform platform;
    EXPECT_EQ(readCatalog().error(), systemFailure(ENOENT));

    platform.files.content[platform.resource("catalog.json")] = encodeCatalog({sample::brisko()});

    EXPECT_EQ(readCatalog(), Catalog{sample::brisko()});
}

} // namespace
