#include "pack/checks/CatalogText.h"

#include "catalog/Fields.h"
#include "pack/checks/EntryRules.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>

#include <algorithm>
#include <cctype>

using namespace Qt::StringLiterals;

namespace {

QString toText(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

/// A member of an entry, or an entry, with the line that it begins in.
struct MemberLine {
    QString key;
    int line;
};
struct EntryLines {
    int line;
    std::vector<MemberLine> members;
};

QString unescaped(const QByteArray& literal)
{
    return QJsonDocument::fromJson('[' + literal + ']').array().first().toString();
}

/// Whether the literal is a text in JSON. Qt takes any character behind a backslash for itself, and leaves
/// control characters and halves of surrogate pairs in place.
bool isText(const QByteArray& literal)
{
    constexpr QByteArrayView escapes("\"\\/bfnrtu");
    for (qsizetype place = 0; place < literal.size(); ++place) {
        if (uchar(literal[place]) < 0x20 || (literal[place] == '\\' && !escapes.contains(literal[++place])))
            return false;
    }
    return !literal.contains("\\u") || unescaped(literal).isValidUtf16();
}

/// The lines of what stands in a list of objects.
struct Lines {
    std::vector<EntryLines> entries;
    /// Of the first text that is none; 0 when all are.
    int noText = 0;
};

/// Reads the lines of JSON that Qt has read.
Lines linesOf(const QByteArray& json)
{
    Lines lines;
    auto& entries = lines.entries;
    QByteArray literal;
    int depth = 0;
    int line = 1;
    bool entryExpected = false;
    for (qsizetype place = 0; place < json.size(); ++place) {
        const char character = json[place];
        if (entryExpected && !std::isspace(uchar(character)) && character != ']') {
            entries.push_back({line, {}});
            entryExpected = false;
        }
        switch (character) {
        case '\n':
            ++line;
            break;
        case '"': {
            qsizetype end = place + 1;
            while (json[end] != '"')
                end += json[end] == '\\' ? 2 : 1;
            literal = json.sliced(place, end + 1 - place);
            place = end;
            if (lines.noText == 0 && !isText(literal))
                lines.noText = line;
            break;
        }
        case ':':
            if (depth == 2)
                entries.back().members.push_back({unescaped(literal), line});
            break;
        case '[':
        case '{':
            ++depth;
            entryExpected = depth == 1;
            break;
        case ']':
        case '}':
            --depth;
            break;
        case ',':
            entryExpected = depth == 1;
            break;
        default:
            break;
        }
    }
    return lines;
}

/// The first line that is not UTF-8; 0 when all are.
int lineThatIsNotUtf8(const QByteArray& text)
{
    int number = 0;
    for (const QByteArray& line : text.split('\n')) {
        ++number;
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString decoded = decoder(line);
        if (decoder.hasError())
            return number;
    }
    return 0;
}

bool take(const QJsonValue& value, QString& field)
{
    field = value.toString();
    return value.isString();
}

bool take(const QJsonValue& value, QStringList& field)
{
    const QJsonArray list = value.toArray();
    for (const QJsonValue item : list)
        field.append(item.toString());
    return value.isArray()
        && std::ranges::all_of(list, [](const QJsonValue& item) { return item.isString(); });
}

bool take(const QJsonValue& value, qint64& field)
{
    field = value.toInteger(-1);
    return field >= 0;
}

QString expectedType(const QString&)
{
    return u"a text"_s;
}

QString expectedType(const QStringList&)
{
    return u"a list of texts"_s;
}

QString expectedType(qint64)
{
    return u"a number of bytes"_s;
}

EntryText readEntry(const QJsonObject& object, const EntryLines& lines, const QString& file, CatalogKind kind,
    Findings& findings)
{
    EntryText entry{.line = lines.line};
    QStringList seen;
    const QString name = object["name"_L1].toString();
    for (const auto& [text, line] : lines.members) {
        const auto key = codingKey(text.toStdString());
        const Place place{file, line, name};
        if (!key || !belongsTo(kind, *key))
            findings.push_back(
                {Code::KeyUnknown, place, u"the key \"%1\" is not known"_s.arg(text), {}, text});
        else if (seen.contains(text))
            findings.push_back(
                {Code::KeyTwice, place, u"the key \"%1\" stands here twice"_s.arg(text), {}, text});
        else
            entry.keyLines.at(std::size_t(*key)) = line;
        seen.append(text);
    }
    forEachField([&](CodingKeys key, auto field) {
        if (!belongsTo(kind, key))
            return;
        const QString text = toText(keyText(key));
        const Place place = {file, std::max(entry.line, entry.keyLines.at(std::size_t(key))), name};
        if (!object.contains(text)) {
            findings.push_back({Code::KeyMissing, place, u"the key \"%1\" is missing"_s.arg(text), text, {}});
        } else if (!take(object[text], entry.app.*field)) {
            const QString expected = expectedType(entry.app.*field);
            findings.push_back(
                {Code::KeyType, place, u"the key \"%1\" must be %2"_s.arg(text, expected), expected, {}});
            // What is there is not looked at any further.
            entry.keyLines.at(std::size_t(key)) = 0;
        }
    });
    return entry;
}

} // namespace

Place EntryText::at(const QString& file, CodingKeys key) const
{
    const int own = keyLines.at(std::size_t(key));
    return {file, own > 0 ? own : line, app.name};
}

std::vector<EntryText> readEntries(
    const QByteArray& json, const QString& file, CatalogKind kind, Findings& findings)
{
    if (const int line = lineThatIsNotUtf8(json); line > 0) {
        findings.push_back({Code::NotUtf8, {file, line, {}}, u"this line is not UTF-8"_s, u"UTF-8"_s, {}});
        return {};
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        const auto line = json.first(std::min<qsizetype>(error.offset, json.size())).count('\n') + 1;
        findings.push_back({Code::NotJson, {file, int(line), {}}, error.errorString(), {}, {}});
        return {};
    }
    if (!document.isArray()) {
        findings.push_back(
            {Code::NotJson, {file, 1, {}}, u"it must be a list of entries"_s, u"a list"_s, {}});
        return {};
    }

    const QJsonArray list = document.array();
    const Lines lines = linesOf(json);
    if (lines.noText > 0) {
        findings.push_back({Code::NotJson, {file, lines.noText, {}},
            u"a text here has a control character, or a backslash before the wrong one"_s, {}, {}});
        return {};
    }
    std::vector<EntryText> entries;
    for (qsizetype index = 0; index < list.size(); ++index) {
        const EntryLines& entryLines = lines.entries.at(std::size_t(index));
        if (list[index].isObject())
            entries.push_back(readEntry(list[index].toObject(), entryLines, file, kind, findings));
        else
            findings.push_back({Code::KeyType, {file, entryLines.line, {}},
                u"entry %1 must be an object"_s.arg(index + 1), u"an object"_s, {}});
    }
    checkEntries(entries, file, findings);
    return entries;
}
