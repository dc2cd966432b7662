#include "catalog/Catalog.h"

#include "catalog/Fields.h"
#include "platform/Platform.h"

#include <QJsonDocument>

#include <simdjson.h>

using namespace Qt::StringLiterals;
namespace dom = simdjson::dom;

namespace {

using Bytes = std::span<const std::byte>;

tl::unexpected<Failure> failure(CatalogError error, const QString& description)
{
    return tl::unexpected(Failure{catalogDomain, static_cast<int>(error), description});
}

QString toText(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

/// The document, which lives as long as the parser.
Result<dom::element> parse(dom::parser& parser, Bytes json)
{
    dom::element document;
    const auto fault = parser.parse(reinterpret_cast<const char*>(json.data()), json.size()).get(document);
    if (fault == simdjson::SUCCESS)
        return document;

    // simdjson does not say where it stopped, and it refuses numbers that are JSON but fit no number of C++.
    // Qt's slower parser finds the place, or writes the document again with such numbers rounded.
    const QByteArray text =
        QByteArray::fromRawData(reinterpret_cast<const char*>(json.data()), qsizetype(json.size()));
    QJsonParseError error;
    const QJsonDocument second = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        const qsizetype line = text.first(std::min<qsizetype>(error.offset, text.size())).count('\n') + 1;
        return failure(
            CatalogError::NotJson, u"Файл каталога повреждён: ошибка JSON в строке %1."_s.arg(line));
    }
    const QByteArray rounded = second.toJson(QJsonDocument::Compact);
    if (fault == simdjson::NUMBER_ERROR
        && parser.parse(rounded.data(), std::size_t(rounded.size())).get(document) == simdjson::SUCCESS)
        return document;
    return failure(CatalogError::NotJson, u"Файл каталога повреждён: это не JSON."_s);
}

/// Reads the keys of one object. After the first key that cannot be read, the failure is kept and the rest is
/// skipped.
class EntryReader {
public:
    EntryReader(dom::object object, qsizetype position) : m_object(object), m_position(position) { }

    void read(CodingKeys key, QString& field)
    {
        field = toText(value<std::string_view>(key, u"текст"_s).value_or(""));
    }
    void read(CodingKeys key, qint64& field)
    {
        field = value<std::int64_t>(key, u"целое число меньше 2⁶³"_s).value_or(0);
    }
    void read(CodingKeys key, QStringList& field)
    {
        const QString expected = u"список текстов"_s;
        const auto items = value<dom::array>(key, expected);
        if (!items)
            return;
        for (const dom::element item : *items) {
            std::string_view text;
            if (item.get(text) != simdjson::SUCCESS) {
                fail(CatalogError::WrongType, key, expected);
                break;
            }
            field.append(toText(text));
        }
    }

    const std::optional<Failure>& failed() const { return m_failure; }

private:
    template <class T>
    std::optional<T> value(CodingKeys key, const QString& expected)
    {
        if (m_failure)
            return std::nullopt;
        dom::element element;
        T result;
        if (m_object.at_key(keyText(key)).get(element) != simdjson::SUCCESS)
            fail(CatalogError::MissingKey, key, expected);
        else if (element.is_null())
            fail(CatalogError::NullValue, key, expected);
        else if (element.get(result) != simdjson::SUCCESS)
            fail(CatalogError::WrongType, key, expected);
        else
            return result;
        return std::nullopt;
    }

    void fail(CatalogError error, CodingKeys key, const QString& expected)
    {
        QString text;
        if (error == CatalogError::MissingKey)
            text = u"В записи %1 каталога нет ключа «%2»."_s;
        else if (error == CatalogError::NullValue)
            text = u"В записи %1 каталога у ключа «%2» нет значения (null)."_s;
        else
            text =
                u"В записи %1 каталога у ключа «%2» неверное значение: здесь ожидается "_s + expected + u'.';
        m_failure =
            Failure{catalogDomain, static_cast<int>(error), text.arg(m_position).arg(toText(keyText(key)))};
    }

    dom::object m_object;
    qsizetype m_position;
    std::optional<Failure> m_failure;
};

Result<StoreApp> decodeEntry(dom::element element, qsizetype position)
{
    dom::object object;
    if (element.get(object) != simdjson::SUCCESS)
        return failure(CatalogError::NotAnEntry, u"Запись %1 каталога — не объект JSON."_s.arg(position));

    EntryReader reader(object, position);
    StoreApp app;
    forEachField([&](CodingKeys key, auto field) { reader.read(key, app.*field); });
    if (reader.failed())
        return tl::unexpected(*reader.failed());
    return app;
}

} // namespace

Result<Catalog> decodeCatalog(Bytes json)
{
    dom::parser parser;
    auto document = parse(parser, json);
    if (!document)
        return tl::unexpected(std::move(document.error()));
    dom::array entries;
    if (document->get(entries) != simdjson::SUCCESS)
        return failure(CatalogError::NotAList, u"Файл каталога повреждён: это не список записей."_s);

    Catalog catalog;
    catalog.reserve(entries.size());
    for (const dom::element element : entries) {
        auto app = decodeEntry(element, qsizetype(catalog.size()) + 1);
        if (!app)
            return tl::unexpected(std::move(app.error()));
        catalog.push_back(std::move(*app));
    }
    return catalog;
}

Result<Catalog> readCatalog()
{
    const Platform& platform = Platform::current();
    return platform.files->read(platform.bundles->mainResources() / "catalog.json")
        .and_then([](const QByteArray& json) { return decodeCatalog(std::as_bytes(std::span(json))); });
}
