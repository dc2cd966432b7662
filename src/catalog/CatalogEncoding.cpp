#include "catalog/Catalog.h"
#include "catalog/Fields.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {

QByteArray json(const QStringList& texts)
{
    return QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Compact);
}

QByteArray json(const QString& text)
{
    return json(QStringList{text}).sliced(1).chopped(1);
}

QByteArray json(qint64 number)
{
    return QByteArray::number(number);
}

QByteArray object(const StoreApp& app, CatalogKind kind)
{
    QByteArrayList lines;
    forEachField([&](CodingKeys key, auto field) {
        if (!belongsTo(kind, key))
            return;
        const std::string_view text = keyText(key);
        lines.append(
            "        \"" + QByteArray(text.data(), qsizetype(text.size())) + "\": " + json(app.*field));
    });
    return "    {\n" + lines.join(",\n") + "\n    }";
}

} // namespace

QByteArray encodeCatalog(const Catalog& catalog, CatalogKind kind)
{
    QByteArrayList objects;
    for (const StoreApp& app : catalog)
        objects.append(object(app, kind));
    return "[\n" + objects.join(",\n") + "\n]\n";
}
