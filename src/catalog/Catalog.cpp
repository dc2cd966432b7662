#include "catalog/Catalog.h"

#include "catalog/Fields.h"
#include "platform/Platform.h"

#include <QJsonDocument>

#include <simdjson.h>

#include <cerrno>
#include <new>

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

/// Makes texts of UTF-8 that simdjson has checked already, which leaves only the copying. The room in which a
/// text is spelled is used again for the next, so that each text allocates once and just what it needs.
class TextDecoder {
public:
    QString text(std::string_view utf8)
    {
        if (m_units.size() < utf8.size())
            m_units.resize(std::max(utf8.size(), 2 * m_units.size()));

        char16_t* unit = m_units.data();
        const auto* byte = reinterpret_cast<const uchar*>(utf8.data());
        const auto* const end = byte + utf8.size();
        const auto follower = [&byte](int index) { return char32_t(byte[index] & 0x3fU); };
        while (byte != end) {
            if (*byte < 0x80) {
                *unit++ = *byte++;
            } else if (*byte < 0xe0) {
                *unit++ = char16_t((*byte & 0x1fU) << 6U | follower(1));
                byte += 2;
            } else if (*byte < 0xf0) {
                *unit++ = char16_t((*byte & 0x0fU) << 12U | follower(1) << 6U | follower(2));
                byte += 3;
            } else {
                const char32_t character =
                    (*byte & 0x07U) << 18U | follower(1) << 12U | follower(2) << 6U | follower(3);
                *unit++ = QChar::highSurrogate(character);
                *unit++ = QChar::lowSurrogate(character);
                byte += 4;
            }
        }
        return QString(reinterpret_cast<const QChar*>(m_units.data()), unit - m_units.data());
    }

private:
    std::vector<char16_t> m_units;
};

/// The document, which lives as long as the parser.
Result<dom::element> parse(dom::parser& parser, Bytes json)
{
    dom::element document;
    const auto fault = parser.parse(reinterpret_cast<const char*>(json.data()), json.size()).get(document);
    if (fault == simdjson::SUCCESS)
        return document;
    if (fault == simdjson::MEMALLOC)
        throw std::bad_alloc();

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
    EntryReader(dom::object object, qsizetype position, TextDecoder& texts)
        : m_object(object), m_next(object.begin()), m_position(position), m_texts(texts)
    {
    }

    void read(CodingKeys key, QString& field)
    {
        if (const auto text = value<std::string_view>(key, u"текст"_s))
            field = m_texts.text(*text);
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
        field.reserve(qsizetype(items->size()));
        for (const dom::element item : *items) {
            std::string_view text;
            if (item.get(text) != simdjson::SUCCESS) {
                fail(CatalogError::WrongType, key, expected);
                break;
            }
            field.append(m_texts.text(text));
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
        if (!find(keyText(key), element))
            fail(CatalogError::MissingKey, key, expected);
        else if (element.is_null())
            fail(CatalogError::NullValue, key, expected);
        else if (element.get(result) != simdjson::SUCCESS)
            fail(CatalogError::WrongType, key, expected);
        else
            return result;
        return std::nullopt;
    }

    bool find(std::string_view key, dom::element& element)
    {
        // Most files have the keys in our order: the next one is tried before all are searched.
        if (m_next != m_object.end() && m_next.key_equals(key)) {
            element = m_next.value();
            ++m_next;
            return true;
        }
        return m_object.at_key(key).get(element) == simdjson::SUCCESS;
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
    dom::object::iterator m_next;
    qsizetype m_position;
    TextDecoder& m_texts;
    std::optional<Failure> m_failure;
};

Result<void> decodeEntry(dom::element element, qsizetype position, TextDecoder& texts, StoreApp& app)
{
    dom::object object;
    if (element.get(object) != simdjson::SUCCESS)
        return failure(CatalogError::NotAnEntry, u"Запись %1 каталога — не объект JSON."_s.arg(position));

    EntryReader reader(object, position, texts);
    forEachField([&](CodingKeys key, auto field) { reader.read(key, app.*field); });
    if (reader.failed())
        return tl::unexpected(*reader.failed());
    return {};
}

Result<Catalog> decode(Bytes json)
{
    dom::parser parser;
    const auto document = parse(parser, json);
    if (!document)
        return tl::unexpected(document.error());
    dom::array entries;
    if (document->get(entries) != simdjson::SUCCESS)
        return failure(CatalogError::NotAList, u"Файл каталога повреждён: это не список записей."_s);

    TextDecoder texts;
    Catalog catalog;
    catalog.reserve(entries.size());
    for (const dom::element element : entries) {
        StoreApp& app = catalog.emplace_back();
        if (auto decoded = decodeEntry(element, qsizetype(catalog.size()), texts, app); !decoded)
            return tl::unexpected(std::move(decoded.error()));
    }
    return catalog;
}

} // namespace

Result<Catalog> decodeCatalog(Bytes json)
{
    try {
        return decode(json);
    } catch (const std::bad_alloc&) {
        return tl::unexpected(systemFailure(ENOMEM));
    }
}

Result<Catalog> readCatalog()
{
    const Platform& platform = Platform::current();
    return platform.files->read(platform.bundles->mainResources() / "catalog.json")
        .and_then([](const QByteArray& json) { return decodeCatalog(std::as_bytes(std::span(json))); });
}
