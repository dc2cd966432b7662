#include "catalog/Catalog.h"

#include "support/FakePlatform.h"
#include "support/Samples.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

Result<Catalog> decode(const QByteArray& json)
{
    return decodeCatalog(std::as_bytes(std::span(json)));
}

QString failureOf(const QByteArray& json)
{
    const auto catalog = decode(json);
    return catalog ? u"decoded"_s : catalog.error().localizedDescription;
}

QString brokenIn(int line)
{
    return u"Файл каталога повреждён: ошибка JSON в строке %1."_s.arg(line);
}

/// Two entries; in the second one `before` has become `after`.
QByteArray edited(const QByteArray& before, const QByteArray& after)
{
    QByteArray json = encodeCatalog({sample::brisko(), sample::kadrilo()});
    const auto place = json.lastIndexOf(before);
    EXPECT_GE(place, 0) << before.toStdString();
    return json.replace(place, before.size(), after);
}

TEST(Catalog, KeepsEveryFieldUnderItsKey)
{
    const StoreApp app = sample::brisko();
    const QByteArray json = encodeCatalog({app});
    const QJsonObject entry = QJsonDocument::fromJson(json).array().first().toObject();

    const std::map<QString, QJsonValue> expected{{u"id"_s, app.id}, {u"name"_s, app.name},
        {u"category"_s, app.category}, {u"subtitle"_s, app.subtitle}, {u"headline"_s, app.headline},
        {u"description"_s, app.description}, {u"tint"_s, app.tint}, {u"version"_s, app.version},
        {u"bundleID"_s, app.bundleID}, {u"minimum"_s, app.minimum}, {u"archive"_s, app.archive},
        {u"sha256"_s, app.sha256}, {u"architecture"_s, app.architecture},
        {u"features"_s, QJsonArray::fromStringList(app.features)}, {u"bytes"_s, app.bytes}};
    for (const auto& [key, value] : expected)
        EXPECT_EQ(entry[key], value) << key.toStdString();
    EXPECT_EQ(decode(json), Catalog{app});
    EXPECT_EQ(codingKey("ID"), std::nullopt);
    const QByteArray collection = encodeCatalog({app}, CatalogKind::Collection);
    EXPECT_FALSE(collection.contains("sha256") || collection.contains("bytes"))
        << "known only of a packed archive";
}

TEST(Catalog, KeepsTheOrderOfTheFileAndTextsAsTheyAre)
{
    StoreApp odd = sample::kadrilo();
    odd.description = u" [{\"a\": 1}], я₽𝄞\t\n\\ "_s;
    odd.features.clear();

    EXPECT_EQ(decode("[]"), Catalog());
    EXPECT_EQ(decode(encodeCatalog({odd, sample::brisko(), odd})), (Catalog{odd, sample::brisko(), odd}));
    EXPECT_EQ(decode(edited("Быстро", "\\u20bd\\ud834\\udd1e"))->at(1).features, QStringList{u"₽𝄞"_s});
    EXPECT_EQ(
        decode(edited("\"id\"", "\"price\": [{\"a\": {\"a\": {\"a\": {}}}}, 1e400], \"\\u0069d\""))->at(1),
        sample::kadrilo())
        << "keys that are not known are ignored";
    EXPECT_EQ(decode(edited("\"tint\"", "\"id\": null, \"tint\""))->at(1), sample::kadrilo())
        << "the first of two equal keys counts";
}

TEST(Catalog, NamesTheEntryAndTheKeyThatIsMissingNullOrOfAnotherType)
{
    for (const std::string_view text : codingKeyTexts) {
        const QByteArray key = '"' + QByteArray(text.data()) + "\": ";
        const QString name = QString::fromLatin1(text.data());

        EXPECT_EQ(failureOf(edited(key, "\"x\": ")), u"В записи 2 каталога нет ключа «%1»."_s.arg(name));
        EXPECT_EQ(failureOf(edited(key, key + "null, \"x\": ")),
            u"В записи 2 каталога у ключа «%1» нет значения (null)."_s.arg(name));
        const QString wrong = u"В записи 2 каталога у ключа «%1» неверное значение: "_s.arg(name);
        EXPECT_TRUE(failureOf(edited(key, key + "{}, \"x\": ")).startsWith(wrong));
    }
    const QString wrong = u"В записи 2 каталога у ключа «%1» неверное значение: здесь ожидается %2."_s;
    EXPECT_EQ(failureOf(edited("\"kadrilo\"", "1")), wrong.arg(u"id"_s, u"текст"_s));
    EXPECT_EQ(failureOf(edited("\"Быстро\"", "\"x\", 1")), wrong.arg(u"features"_s, u"список текстов"_s));
    EXPECT_TRUE(failureOf("[{\"bytes\": \"wrong\", \"id\": 1}]").contains(u"«id»")) << "the first in order";
    for (const QByteArray& number :
        {QByteArray("9223372036854775808"), QByteArray("1.5"), QByteArray("1e3"), QByteArray("1e400"),
            QByteArray(400, '9'), '-' + QByteArray(400, '9'), QByteArray("\"12\""), QByteArray("true")})
        EXPECT_EQ(failureOf(edited("31000000", number)), wrong.arg(u"bytes"_s, u"целое число меньше 2⁶³"_s));
    for (const qint64 number : {std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::min()})
        EXPECT_EQ(decode(edited("31000000", QByteArray::number(number)))->at(1).bytes, number);
}

TEST(Catalog, NamesTheLineWhereTheFileStopsBeingJson)
{
    const std::vector<std::pair<QByteArray, int>> broken{{"", 1}, {"\n ", 2}, {"PloviStore\n", 1},
        {"[\n1,\n2", 3}, {"[\n{\"a\":\n", 3}, {"[1,\n2\n,]", 3}, {"[1\n2]", 2}, {"[1],\n[2]", 2},
        {"[1]\n]", 2}, {"]", 1}, {"[\n{\"a\"\n1}]", 3}, {"[{\"a\":1,\n}]", 2}, {"[{1:1}\n]", 1},
        {"[\n{\"a\":1]\n]", 2}, {"[\n1}]", 2}, {"[1,\n\"a\nb\"]", 2}, {"[\n\"a\tb\"\n]", 2},
        {"[\n\"\\q\"\n]", 2}, {"[\n\"\\ud800\"\n]", 2}, {"[\n\"a\n,]", 2}, {"[{\n\"\\u12\":1\n}]", 2},
        {"[1,\n\"\xff\"]", 2}, {"[1,\n,\"\n\xff\"]", 2}, {"[\n01\n]", 2}, {"[\n1.\n]", 2}, {"[\n-\n]", 2},
        {"[\n1e\n]", 2}, {"[\n1" + QByteArray(400, '0') + "x\n]", 2}, {"[\ntru\n]", 2}, {"[\nnull1\n]", 2},
        {"\xef\xbb\xbf[]", 1}, {'\n' + QByteArray("{\"a\":").repeated(1025) + '1' + QByteArray(1025, '}'), 2},
        {'\n' + QByteArray(1025, '[') + QByteArray(1025, ']'), 2}, {"\n" + QByteArray(100'000, '['), 2}};
    for (const auto& [json, line] : broken)
        EXPECT_EQ(failureOf(json), brokenIn(line)) << json.left(20).toPercentEncoding().toStdString();
}

TEST(Catalog, SaysWhatIsNoListOfEntries)
{
    for (const QByteArray& json : {QByteArray("{}"), QByteArray("\"[]\""), QByteArray("1")})
        EXPECT_EQ(failureOf(json), u"Файл каталога повреждён: это не список записей."_s);
    EXPECT_EQ(failureOf("[[{}]]"), u"Запись 1 каталога — не объект JSON."_s);
    EXPECT_EQ(
        failureOf(QByteArray(1024, '[') + QByteArray(1024, ']')), u"Запись 1 каталога — не объект JSON."_s);
}

TEST(Catalog, IsReadFromTheResourceFolder)
{
    FakePlatform::FakeFiles files;
    EXPECT_EQ(readCatalog("/Store.app", files).error(), systemFailure(ENOENT));

    files.content["/Store.app/Contents/Resources/catalog.json"] = encodeCatalog({sample::brisko()});

    EXPECT_EQ(readCatalog("/Store.app", files), Catalog{sample::brisko()});
}

} // namespace
