#include "pack/Collection.h"

#include "pack/Files.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Takes the keys of one JSON object one by one and remembers the first complaint.
class Keys {
public:
    explicit Keys(QJsonObject object) : m_rest(std::move(object)) { }

    QString text(QLatin1StringView key)
    {
        const auto value = take(key);
        if (!value.isString())
            complain(key, u"must be a text"_s);
        return value.toString();
    }

    QStringList texts(QLatin1StringView key)
    {
        const auto value = take(key);
        const auto list = value.toArray();
        if (!value.isArray()
            || !std::ranges::all_of(list, [](QJsonValueConstRef item) { return item.isString(); }))
            complain(key, u"must be a list of texts"_s);

        QStringList result;
        for (const auto& item : list)
            result.append(item.toString());
        return result;
    }

    /// What is wrong with the object, now that every known key has been taken.
    std::optional<QString> complaint() const
    {
        if (!m_complaint && !m_rest.isEmpty())
            return u"the key \"%1\" is not known"_s.arg(m_rest.begin().key());
        return m_complaint;
    }

private:
    QJsonValue take(QLatin1StringView key)
    {
        if (!m_rest.contains(key))
            complain(key, u"is missing"_s);
        return m_rest.take(key);
    }

    void complain(QLatin1StringView key, const QString& fault)
    {
        if (!m_complaint)
            m_complaint = u"the key \"%1\" %2"_s.arg(key, fault);
    }

    QJsonObject m_rest;
    std::optional<QString> m_complaint;
};

bool canBeFileName(const QString& text)
{
    return !text.isEmpty() && text != "."_L1 && text != ".."_L1 && !text.contains(u'/')
        && !text.contains(QChar(u'\0'));
}

Outcome<Entry> readEntry(const QJsonValue& value)
{
    if (!value.isObject())
        return tl::unexpected(u"it must be an object"_s);

    Keys keys(value.toObject());
    Entry entry{
        .id = keys.text("id"_L1),
        .name = keys.text("name"_L1),
        .category = keys.text("category"_L1),
        .subtitle = keys.text("subtitle"_L1),
        .headline = keys.text("headline"_L1),
        .description = keys.text("description"_L1),
        .tint = keys.text("tint"_L1),
        .version = keys.text("version"_L1),
        .bundleID = keys.text("bundleID"_L1),
        .minimum = keys.text("minimum"_L1),
        .archive = keys.text("archive"_L1),
        .architecture = keys.text("architecture"_L1),
        .features = keys.texts("features"_L1),
    };
    if (const auto complaint = keys.complaint())
        return tl::unexpected(*complaint);
    if (!canBeFileName(entry.name))
        return tl::unexpected(u"the name \"%1\" cannot be a file name"_s.arg(entry.name));
    if (!canBeFileName(entry.archive))
        return tl::unexpected(u"the archive \"%1\" cannot be a file name"_s.arg(entry.archive));
    return entry;
}

/// Which key two entries must not share, but do.
std::optional<QLatin1StringView> sharedKey(const Entry& one, const Entry& other)
{
    if (one.id == other.id)
        return "id"_L1;
    if (one.name == other.name)
        return "name"_L1;
    if (one.archive == other.archive)
        return "archive"_L1;
    return std::nullopt;
}

Outcome<QJsonArray> readArray(const Path& file)
{
    const auto content = readFile(file);
    if (!content)
        return tl::unexpected(content.error());

    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(*content, &error);
    if (error.error != QJsonParseError::NoError) {
        const auto line = content->first(std::min<qsizetype>(error.offset, content->size())).count('\n') + 1;
        return tl::unexpected(u"%1:%2: %3"_s.arg(toText(file)).arg(line).arg(error.errorString()));
    }
    if (!document.isArray())
        return tl::unexpected(u"%1: it must be a list of entries"_s.arg(toText(file)));
    return document.array();
}

} // namespace

Outcome<std::vector<Entry>> readCollection(const Path& file)
{
    const auto array = readArray(file);
    if (!array)
        return tl::unexpected(array.error());

    std::vector<Entry> entries;
    for (const auto& value : *array) {
        const auto fault = [&](const QString& text) {
            return tl::unexpected(u"%1, entry %2: %3"_s.arg(toText(file)).arg(entries.size() + 1).arg(text));
        };
        auto entry = readEntry(value);
        if (!entry)
            return fault(entry.error());
        for (const auto& earlier : entries) {
            if (const auto key = sharedKey(earlier, *entry))
                return fault(u"another entry has the same %1"_s.arg(*key));
        }
        entries.push_back(*std::move(entry));
    }
    return entries;
}
