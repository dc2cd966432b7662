#include "catalog/Catalog.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <concepts>

namespace {

QByteArray json(const QStringList& texts)
{
    return QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Compact);
}

QByteArray json(const QString& text)
{
    return json(QStringList{text}).sliced(1).chopped(1);
}

QByteArray json(std::integral auto number)
{
    if constexpr (std::same_as<decltype(number), bool>)
        return number ? "true" : "false";
    return QByteArray::number(number);
}

QByteArray object(const StoreApp& app, CatalogKind kind)
{
    QByteArrayList lines;
    forEachField(
        [&](CodingKeys key, auto field) {
            const std::string_view text = keyText(key);
            lines.append(
                "        \"" + QByteArray(text.data(), qsizetype(text.size())) + "\": " + json(app.*field));
        },
        kind);
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
