#include "catalog/Catalog.h"

#include "support/FakePlatform.h"
#include "support/Samples.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

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

TEST(Catalog, TakesOnlyWholeNumbersOf64BitsForBytesAndNumbersOfAnySizeElsewhere)
{
    for (const qint64 number : {std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min()})
        EXPECT_EQ(decode(edited("31000000", QByteArray::number(number)))->at(1).bytes, number);
    const QByteArray huge(400, '7');
    for (const QByteArray& wrong : {QByteArray("9223372036854775808"), huge, '-' + huge, QByteArray("1e400"),
             QByteArray("1.5"), QByteArray("1e3"), QByteArray("\"12\""), QByteArray("true")}) {
        EXPECT_THAT(failureOf(edited("31000000", wrong)), HasSubstr("«bytes»")) << wrong.toStdString();
        EXPECT_EQ(failureOf(edited("\"bytes\"", "\"x\": [" + wrong + "], \"bytes\"")), "decoded")
            << wrong.toStdString();
    }
}

TEST(Catalog, FailsAsAWholeAndNamesTheLineOfTheFault)
{
    for (const auto& [json, expected] : {
             std::pair<QByteArray, const char*>("", "строке 1."),
             {"PloviStore\n", "строке 1."},
             {"[\n1,\n2", "строке 3."},
             {"[\n]\n[]", "строке 3."},
             {QByteArray(100'000, '['), "строке 1."},
             {"{}", "список"},
             {"\"[]\"", "список"},
             {"[\"brisko\"]", "Запись 1"},
         })
        EXPECT_THAT(failureOf(json), HasSubstr(expected))
            << json.first(std::min<qsizetype>(json.size(), 20)).toStdString();

    struct Mistake {
        QByteArray before;
        QByteArray after;
    };
    for (const auto& [before, after] : std::initializer_list<Mistake>{
             {"\"Быстро\"", "\"Быстро"},
             {"Быстро", "\\x"},
             {"Быстро", "\\ud800"},
             {"Быстро", "\t"},
             {"Быстро", "\xff\xfe"},
             {"\"features\": ", "\"features\" "},
             {"\"features\": ", "features: "},
             {"],\n", "],,\n"},
             {"31000000", "tru"},
             {"31000000", "01"},
             {"31000000", "1."},
             {"31000000", "-"},
             {"31000000", "1e"},
         }) {
        const QByteArray good = edited("", "");
        const auto line = good.first(good.lastIndexOf(before)).count('\n') + 1;
        EXPECT_EQ(failureOf(edited(before, after)),
            u"Файл каталога повреждён: ошибка JSON в строке %1."_s.arg(line).toStdString())
            << after.toStdString();
    }
}

TEST(Catalog, IsReadFromTheResourceFolder)
{
    FakePlatform platform;
    EXPECT_EQ(readCatalog().error(), systemFailure(ENOENT));

    platform.files.content[platform.resource("catalog.json")] = encodeCatalog({sample::brisko()});

    EXPECT_EQ(readCatalog(), Catalog{sample::brisko()});
}

} // namespace
