#include "pack/checks/EntryRules.h"

#include "catalog/Categories.h"

#include <QMap>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr CodingKeys idKey = *codingKey("id");
constexpr CodingKeys nameKey = *codingKey("name");
constexpr CodingKeys categoryKey = *codingKey("category");
constexpr CodingKeys descriptionKey = *codingKey("description");
constexpr CodingKeys bundleIdKey = *codingKey("bundleID");
constexpr CodingKeys minimumKey = *codingKey("minimum");
constexpr CodingKeys archiveKey = *codingKey("archive");

constexpr qsizetype longestName = 240;
constexpr std::size_t entriesOfSelfTest = 4;

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control;
}

/// Whether it changes the direction of what stands around it, so that a text shows other than it reads.
bool isBidiControl(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069) || code == 0x200e
        || code == 0x200f || code == 0x061c;
}

QString codePoint(QChar character)
{
    return u"U+%1"_s.arg(int(character.unicode()), 4, 16, QChar(u'0')).toUpper();
}

void checkText(const QString& text, CodingKeys key, const Place& place, Findings& findings)
{
    const QString name = QString::fromLatin1(keyText(key).data());
    if (text.trimmed().isEmpty())
        findings.push_back({.code = Code::TextEmpty,
            .place = place,
            .message = u"\"%1\" is empty"_s.arg(name),
            .found = text});
    const auto control = std::ranges::find_if(text, [key](QChar character) {
        return isControl(character) && !(key == descriptionKey && character == u'\n');
    });
    if (control != text.end())
        findings.push_back({.code = Code::TextControl,
            .place = place,
            .message = u"\"%1\" holds the control character %2"_s.arg(name, codePoint(*control)),
            .found = codePoint(*control)});
    const auto bidi = std::ranges::find_if(text, isBidiControl);
    if (bidi != text.end())
        findings.push_back({.code = Code::TextBidi,
            .place = place,
            .message = u"\"%1\" changes the direction of writing with %2"_s.arg(name, codePoint(*bidi)),
            .found = codePoint(*bidi)});
}

void checkField(const QString& text, CodingKeys key, const Place& place, Findings& findings)
{
    checkText(text, key, place, findings);
}

void checkField(const QStringList& texts, CodingKeys key, const Place& place, Findings& findings)
{
    for (const QString& text : texts)
        checkText(text, key, place, findings);
}

void checkField(qint64, CodingKeys, const Place&, Findings&) { }

QString categoryList()
{
    QStringList titles;
    for (const QStringView title : categoryTitles)
        titles.append(title.toString());
    return titles.join(u", "_s);
}

void checkEntry(const EntryText& entry, const QString& file, Findings& findings)
{
    const StoreApp& app = entry.app;
    forEachField([&](CodingKeys key, auto field) {
        if (entry.keyLines.at(std::size_t(key)) > 0)
            checkField(app.*field, key, entry.at(file, key), findings);
    });
    const auto has = [&](CodingKeys key) { return entry.keyLines.at(std::size_t(key)) > 0; };
    const auto tell = [&](Code code, CodingKeys key, const QString& message, const QString& expected,
                          const QString& found) {
        findings.push_back({code, entry.at(file, key), message, expected, found});
    };
    for (const auto& [key, text] : {std::pair(nameKey, app.name), {archiveKey, app.archive}}) {
        if (has(key) && !canBeFileName(text))
            tell(Code::NameNotFile, key, u"\"%1\" cannot be the name of a file"_s.arg(text), {}, text);
    }
    if (has(archiveKey) && !app.archive.endsWith(".zip"_L1))
        tell(Code::ArchiveNotZip, archiveKey, u"\"%1\" does not end with .zip"_s.arg(app.archive), u".zip"_s,
            app.archive);
    if (has(categoryKey) && std::ranges::find(categoryTitles, app.category) == categoryTitles.end())
        tell(Code::CategoryUnknown, categoryKey,
            u"«%1» is no section of the window (%2)"_s.arg(app.category, categoryList()), categoryList(),
            app.category);
    static const QRegularExpression numbers(u"^[0-9]+(\\.[0-9]+)*$"_s, QRegularExpression::DontCaptureOption);
    if (has(minimumKey) && !numbers.match(app.minimum).hasMatch())
        tell(Code::MinimumForm, minimumKey, u"\"%1\" is no version such as 13 or 10.15"_s.arg(app.minimum),
            u"13"_s, app.minimum);
}

/// Complains where two entries have the same text at the key.
void checkShared(const std::vector<EntryText>& entries, const QString& file, CodingKeys key,
    QString StoreApp::*field, Code code, QString (*folded)(const QString&), Findings& findings)
{
    QMap<QString, int> lines;
    for (const EntryText& entry : entries) {
        const int line = entry.keyLines.at(std::size_t(key));
        if (line == 0)
            continue;
        const QString& text = entry.app.*field;
        const auto first = lines.constFind(folded(text));
        if (first == lines.constEnd())
            lines.insert(folded(text), line);
        else
            findings.push_back({.code = code,
                .place = entry.at(file, key),
                .message = u"\"%1\" is also the %2 in line %3"_s.arg(
                    text, QString::fromLatin1(keyText(key).data()), QString::number(*first)),
                .found = text});
    }
}

QString asIs(const QString& text)
{
    return text;
}

} // namespace

bool canBeFileName(const QString& text)
{
    return !text.isEmpty() && !text.startsWith(u'.') && text.toUtf8().size() <= longestName
        && std::ranges::none_of(
            text, [](QChar character) { return character == u'/' || isControl(character); });
}

QString foldedName(const QString& name)
{
    return name.normalized(QString::NormalizationForm_C)
        .toCaseFolded()
        .normalized(QString::NormalizationForm_C);
}

bool showsScreenshot(const StoreApp& app)
{
    return app.id == "brisko"_L1;
}

void checkEntries(const std::vector<EntryText>& entries, const QString& file, Findings& findings)
{
    for (const EntryText& entry : entries)
        checkEntry(entry, file, findings);
    checkShared(entries, file, idKey, &StoreApp::id, Code::IdShared, asIs, findings);
    checkShared(entries, file, nameKey, &StoreApp::name, Code::NameShared, foldedName, findings);
    checkShared(entries, file, bundleIdKey, &StoreApp::bundleID, Code::BundleIdShared, asIs, findings);
    checkShared(entries, file, archiveKey, &StoreApp::archive, Code::ArchiveShared, foldedName, findings);

    if (!entries.empty() && entries.front().app.name != "Brisko"_L1)
        findings.push_back({.code = Code::FirstNotBrisko,
            .place = entries.front().at(file, nameKey),
            .message = u"the first entry is featured, and its card always speaks of «Brisko»"_s,
            .expected = u"Brisko"_s,
            .found = entries.front().app.name});
    if (entries.size() != entriesOfSelfTest)
        findings.push_back({.code = Code::CountNotFour,
            .place = {.file = file},
            .message = u"the store's self-test wants four entries, and there are %1"_s.arg(entries.size()),
            .expected = u"4"_s,
            .found = QString::number(entries.size())});
}
