#include "catalog/Catalog.h"

#include "catalog/CodingKeys.h"
#include "support/FakePlatform.h"
#include "support/Samples.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

/// How many more requests for memory succeed; negative: all.
static int requestsLeft = -1;

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): a test that runs out of memory needs its
// own.
void* operator new(std::size_t size)
{
    void* const memory = requestsLeft == 0 ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    if (requestsLeft > 0)
        --requestsLeft;
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
// NOLINTEND

namespace {

Result<Catalog> decode(const QByteArray& json)
{
    return decodeCatalog(std::as_bytes(std::span(json)));
}

/// A catalog of two entries of which the second one's `key` is `value`, or is missing when that is undefined.
QByteArray withSecond(const QString& key, const QJsonValue& value)
{
    QJsonArray entries =
        QJsonDocument::fromJson(encodeCatalog({sample::brisko(), sample::kadrilo()})).array();
    QJsonObject second = entries[1].toObject();
    if (value.isUndefined())
        second.remove(key);
    else
        second[key] = value;
    entries[1] = second;
    return QJsonDocument(entries).toJson();
}

std::string failureOf(const QByteArray& json)
{
    const auto catalog = decode(json);
    return catalog ? "decoded" : catalog.error().localizedDescription.toStdString();
}

TEST(Catalog, KeepsEveryFieldAndTheOrderOfTheFile)
{
    EXPECT_EQ(decode("[]"), Catalog());
    EXPECT_EQ(decode(encodeCatalog({sample::kadrilo(), sample::brisko()})),
        (Catalog{sample::kadrilo(), sample::brisko()}));
}

TEST(Catalog, SpellsEveryKeyLikeItsField)
{
    QByteArray json = "[{";
    for (const std::string_view key : codingKeyTexts)
        json += '"' + QByteArray(key.data(), qsizetype(key.size())) + "\":\"" + key.data() + "\",";
    json.replace(
        "\"features\":\"features\",\"bytes\":\"bytes\",", "\"features\":[\"\\u0444\"],\"bytes\":7}]");

    EXPECT_EQ(decode(json),
        (Catalog{{u"id"_s, u"name"_s, u"category"_s, u"subtitle"_s, u"headline"_s, u"description"_s,
            u"tint"_s, u"version"_s, u"bundleID"_s, u"minimum"_s, u"archive"_s, u"sha256"_s,
            u"architecture"_s, {u"ф"_s}, 7}}));
}

TEST(Catalog, IgnoresKeysItDoesNotKnow)
{
    EXPECT_EQ(decode(withSecond(u"price"_s, QJsonArray{1, u"x"_s}))->size(), 2U);
    QByteArray huge = encodeCatalog({sample::brisko()});
    huge.replace("\"bytes\"", "\"population\": 123456789012345678901234567890, \"bytes\"");
    EXPECT_EQ(decode(huge), Catalog{sample::brisko()});
}

TEST(Catalog, NamesTheEntryAndTheKeyThatIsMissingNullOrOfAnotherType)
{
    for (const std::string_view text : codingKeyTexts) {
        SCOPED_TRACE(text);
        const QString key = QString::fromUtf8(text.data(), qsizetype(text.size()));
        const auto names = testing::AllOf(HasSubstr("записи 2"), HasSubstr("«" + std::string(text) + "»"));

        EXPECT_THAT(failureOf(withSecond(key, QJsonValue::Undefined)), names);
        EXPECT_THAT(failureOf(withSecond(key, QJsonValue::Null)), names);
        EXPECT_THAT(failureOf(withSecond(key, QJsonObject())), names);
        EXPECT_EQ(codingKey(text).has_value(), true);
    }
    EXPECT_EQ(codingKey("ID"), std::nullopt);
    EXPECT_THAT(failureOf("[{\"bytes\": \"wrong\", \"id\": 1}]"), HasSubstr("«id»"))
        << "the first in key order";
    EXPECT_THAT(failureOf(withSecond(u"features"_s, QJsonArray{u"x"_s, 1})), HasSubstr("«features»"));
}

TEST(Catalog, TakesOnlyWholeNumbersOf64BitsForBytes)
{
    struct Case {
        QByteArray number;
        std::optional<qint64> expected;
    };
    for (const auto& [number, expected] : {
             Case{"9223372036854775807", 9223372036854775807},
             Case{"-1", -1},
             Case{"9223372036854775808", {}},
             Case{"123456789012345678901234567890", {}},
             Case{"1.5", {}},
             Case{"\"12\"", {}},
             Case{"true", {}},
         }) {
        SCOPED_TRACE(number.toStdString());
        QByteArray json = encodeCatalog({sample::brisko()});
        json.replace("12400000", number);

        const auto catalog = decode(json);

        EXPECT_EQ(catalog ? std::optional(catalog->at(0).bytes) : std::nullopt, expected);
        if (!expected) {
            EXPECT_THAT(failureOf(json), HasSubstr("«bytes»"));
        }
    }
}

TEST(Catalog, FailsAsAWholeWhenTheFileIsBroken)
{
    const QByteArray good = encodeCatalog({sample::brisko()});
    QByteArray badText = good;
    badText.replace("Brisko-2.4.zip", "\xff\xfe");
    struct Case {
        const char* situation;
        QByteArray json;
        const char* expected;
    };
    for (const auto& [situation, json, expected] : {
             Case{"empty", "", "строке 1"},
             Case{"text", "PloviStore\n", "строке 1"},
             Case{"broken in the third line", "[\n1,\n2", "строке 3"},
             Case{"trailing bytes", good + "]", "JSON"},
             Case{"invalid UTF-8", badText, "JSON"},
             Case{"too deep", QByteArray(100'000, '['), "JSON"},
             Case{"an object", "{}", "список"},
             Case{"a text", "\"[]\"", "список"},
             Case{"a list of texts", "[\"brisko\"]", "Запись 1"},
         }) {
        SCOPED_TRACE(situation);
        EXPECT_THAT(failureOf(json), HasSubstr(expected));
    }
}

TEST(Catalog, SaysThatMemoryIsShort)
{
    const QByteArray json = encodeCatalog({sample::brisko()});
    int failed = 0;
    for (bool done = false; !done; ++failed) {
        requestsLeft = failed;
        const auto catalog = decode(json);
        requestsLeft = -1;
        done = catalog.has_value();
        if (!done) {
            ASSERT_EQ(catalog.error(), systemFailure(ENOMEM));
        }
    }
    EXPECT_GT(failed, 3);
}

TEST(Catalog, IsReadFromTheResourceFolder)
{
    FakePlatform platform;
    EXPECT_EQ(readCatalog().error(), systemFailure(ENOENT));

    platform.files.content[platform.resource("catalog.json")] = encodeCatalog({sample::brisko()});

    EXPECT_EQ(readCatalog(), Catalog{sample::brisko()});
}

} // namespace
