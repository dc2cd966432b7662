#include "pack/checks/CatalogText.h"

#include "catalog/EntryReading.h"
#include "pack/checks/EntryRules.h"

#include <concepts>

using namespace Qt::StringLiterals;

namespace {

QString expectedType(const QString&)
{
    return u"a text"_s;
}

QString expectedType(const QStringList&)
{
    return u"a list of texts"_s;
}

template <std::integral Value>
QString expectedType(Value)
{
    return std::same_as<Value, bool> ? u"true or false"_s : u"a whole number, not below 0"_s;
}

template <class Value>
bool isBelowZero(const Value& value)
{
    if constexpr (std::signed_integral<Value>)
        return value < 0;
    return false;
}

Finding findingOf(const JsonFault& fault, const QString& file)
{
    const Place place{.file = file, .line = fault.line};
    switch (fault.kind) {
    case JsonFault::Kind::NotUtf8:
        return {.code = Code::NotUtf8,
            .place = place,
            .message = u"this line is not UTF-8"_s,
            .expected = u"UTF-8"_s};
    case JsonFault::Kind::Text:
        return {.code = Code::NotJson,
            .place = place,
            .message = u"a text here has no end, a control character, or a backslash before the wrong one"_s};
    case JsonFault::Kind::Number:
        return {.code = Code::NotJson,
            .place = place,
            .message = u"a number here is not written as JSON wants it"_s};
    default:
        return {.code = Code::NotJson,
            .place = place,
            .message =
                u"a comma, a colon, a bracket or a quotation mark is missing here, or stands here wrongly"_s};
    }
}

/// The keys of an entry that files of this kind have; the others are not known.
bool isKnown(std::optional<CodingKeys> key, CatalogKind kind)
{
    bool isFound = false;
    forEachField([&](CodingKeys known, auto) { isFound = isFound || key == known; }, kind);
    return isFound;
}

EntryText entryText(const EntryReading& entry, const QString& file, CatalogKind kind, Findings& findings)
{
    EntryText text{.app = entry.app, .line = entry.line, .keyLines = {}};
    const auto tell = [&](Code code, int line, const QString& message, const QString& expected = {},
                          const QString& found = {}) {
        findings.push_back({code, {file, line, entry.app.name}, message, expected, found});
    };
    const auto tellUnknown = [&](const QString& key, int line) {
        tell(Code::KeyUnknown, line, u"the key \"%1\" is not known"_s.arg(key), {}, key);
    };
    for (const auto& [key, line] : entry.oddKeys) {
        if (isKnown(codingKey(key.toStdString()), kind))
            tell(Code::KeyTwice, line, u"the key \"%1\" stands here twice"_s.arg(key), {}, key);
        else
            tellUnknown(key, line);
    }
    forEachField([&](CodingKeys key, auto field) {
        const auto& [state, line] = entry.at(key);
        const QString name = QString::fromLatin1(keyText(key).data());
        if (!isKnown(key, kind)) {
            if (state != KeyReading::State::Missing)
                tellUnknown(name, line);
        } else if (state == KeyReading::State::Missing) {
            tell(Code::KeyMissing, entry.line, u"the key \"%1\" is missing"_s.arg(name), name);
        } else if (state != KeyReading::State::Read || isBelowZero(entry.app.*field)) {
            const QString expected = expectedType(entry.app.*field);
            tell(Code::KeyType, line, u"the key \"%1\" must be %2"_s.arg(name, expected), expected);
        } else {
            text.keyLines.at(std::size_t(key)) = line;
        }
    });
    return text;
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
    const CatalogReading catalog = readEntries({json.data(), std::size_t(json.size())});
    if (catalog.fault) {
        findings.push_back(findingOf(*catalog.fault, file));
        return {};
    }
    if (!catalog.isList) {
        findings.push_back({.code = Code::NotJson,
            .place = {.file = file, .line = 1},
            .message = u"it must be a list of entries"_s,
            .expected = u"a list"_s});
        return {};
    }
    std::vector<EntryText> entries;
    int position = 0;
    for (const EntryReading& entry : catalog.entries) {
        ++position;
        if (entry.isObject)
            entries.push_back(entryText(entry, file, kind, findings));
        else
            findings.push_back({.code = Code::KeyType,
                .place = {.file = file, .line = entry.line},
                .message = u"entry %1 must be an object"_s.arg(position),
                .expected = u"an object"_s});
    }
    checkEntries(entries, file, findings);
    return entries;
}
