#include "pack/Catalog.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {

QString json(const QJsonArray& list)
{
    return QString::fromUtf8(QJsonDocument(list).toJson(QJsonDocument::Compact));
}

QString json(const QStringList& texts)
{
    return json(QJsonArray::fromStringList(texts));
}

QString json(const QString& text)
{
    return json(QJsonArray{text}).sliced(1).chopped(1);
}

QString json(qint64 number)
{
    return QString::number(number);
}

QString object(const PackedEntry& packed)
{
    const auto& [entry, archive] = packed;
    QStringList lines;
    const auto line = [&lines](QLatin1StringView key, const auto& value) {
        lines.append(u"        \"%1\": "_s.arg(key) + json(value));
    };
    line("id"_L1, entry.id);
    line("name"_L1, entry.name);
    line("category"_L1, entry.category);
    line("subtitle"_L1, entry.subtitle);
    line("headline"_L1, entry.headline);
    line("description"_L1, entry.description);
    line("tint"_L1, entry.tint);
    line("version"_L1, entry.version);
    line("bundleID"_L1, entry.bundleID);
    line("minimum"_L1, entry.minimum);
    line("archive"_L1, entry.archive);
    line("sha256"_L1, archive.sha256);
    line("architecture"_L1, entry.architecture);
    line("features"_L1, entry.features);
    line("bytes"_L1, archive.bytes);
    return u"    {\n"_s + lines.join(",\n"_L1) + u"\n    }"_s;
}

} // namespace

QByteArray catalogFile(const std::vector<PackedEntry>& entries)
{
    QStringList objects;
    for (const auto& entry : entries)
        objects.append(object(entry));
    return (u"[\n"_s + objects.join(",\n"_L1) + u"\n]\n"_s).toUtf8();
}
