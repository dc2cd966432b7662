#include "catalog/Catalog.h"

#include "catalog/Fields.h"
#include "platform/BundleLayout.h"
#include "platform/Platform.h"

#include <QJsonDocument>
#include <QtEndian>

#include <simdjson.h>

#include <bit>
#include <cerrno>
#include <new>

using namespace Qt::StringLiterals;
namespace dom = simdjson::dom;

namespace {

using Bytes = std::span<const std::byte>;

constexpr std::string_view whiteSpace = " \t\n\r";

tl::unexpected<Failure> failure(CatalogError error, const QString& description)
{
    return tl::unexpected(Failure{catalogDomain, static_cast<int>(error), description});
}

QString toText(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

/// Where the next character is read, and where it is written.
struct Place {
    const uchar* byte;
    char16_t* unit;
};

void copyCharacter(Place& at)
{
    const auto follower = [byte = at.byte](int index) { return char32_t(byte[index] & 0x3fU); };
    const uchar first = *at.byte;
    if (first < 0x80) {
        *at.unit++ = first;
        at.byte += 1;
    } else if (first < 0xe0) {
        *at.unit++ = char16_t((first & 0x1fU) << 6U | follower(1));
        at.byte += 2;
    } else if (first < 0xf0) {
        *at.unit++ = char16_t((first & 0x0fU) << 12U | follower(1) << 6U | follower(2));
        at.byte += 3;
    } else {
        const char32_t character =
            (first & 0x07U) << 18U | follower(1) << 12U | follower(2) << 6U | follower(3);
        *at.unit++ = QChar::highSurrogate(character);
        *at.unit++ = QChar::lowSurrogate(character);
        at.byte += 4;
    }
}

/// Copies as many of the next eight bytes as are alike: letters of two bytes, as in Cyrillic, or all of them
/// ASCII. False where a character follows that has to be copied on its own. A branch at each letter would be
/// foreseen wrongly at the end of every word.
bool copyAlike(Place& at)
{
    const auto eight = qFromLittleEndian<quint64>(at.byte);
    const quint64 four = (eight & 0x001f001f001f001fU) << 6U | (eight >> 8U & 0x003f003f003f003fU);
    at.unit[0] = char16_t(four);
    at.unit[1] = char16_t(four >> 16U);
    at.unit[2] = char16_t(four >> 32U);
    at.unit[3] = char16_t(four >> 48U);
    const quint64 misfits = (eight & 0x00e000e000e000e0U) ^ 0x00c000c000c000c0U;
    const auto fitting = std::size_t(std::countr_zero(misfits)) / 16;
    at.byte += 2 * fitting;
    at.unit += fitting;
    if (fitting == 4)
        return true;
    if ((eight & 0x8080808080808080U) != 0)
        return false;
    at.unit = std::copy_n(at.byte, 8, at.unit);
    at.byte += 8;
    return true;
}

/// Makes texts of UTF-8 that simdjson has checked already, which leaves only the copying. They lie one behind
/// the other in blocks of memory that they own together: to allocate each on its own takes as long as to copy
/// it.
class TextDecoder {
public:
    QString text(std::string_view utf8)
    {
        // No character takes more units than bytes; the null behind the text takes one.
        const auto most = qsizetype(utf8.size()) + 1;
        if (m_room < most) {
            m_room = std::max(most, blockSize);
            m_block = QString(m_room, Qt::Uninitialized);
            m_free = reinterpret_cast<char16_t*>(m_block.data());
        }

        Place at{reinterpret_cast<const uchar*>(utf8.data()), m_free};
        const auto* const end = at.byte + utf8.size();
        while (at.byte != end) {
            if (end - at.byte < 8 || !copyAlike(at))
                copyCharacter(at);
        }
        QString::DataPointer text = m_block.data_ptr();
        text.ptr = std::exchange(m_free, at.unit);
        text.size = m_free - text.ptr;
        *m_free++ = u'\0';
        m_room -= text.size + 1;
        return QString(std::move(text));
    }

private:
    static constexpr qsizetype blockSize = 16'384;

    QString m_block;
    char16_t* m_free = nullptr;
    qsizetype m_room = 0;
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

/// Whether the mark comes next. It and the white space before it are taken away.
bool take(std::string_view& json, char mark)
{
    json.remove_prefix(std::min(json.find_first_not_of(whiteSpace), json.size()));
    const bool isNext = json.starts_with(mark);
    json.remove_prefix(isNext ? 1 : 0);
    return isNext;
}

/// Takes away the object that comes next. No part of an object is one, so it ends at the first brace where it
/// can be parsed; its texts may have braces too, but few.
std::optional<dom::element> takeObject(std::string_view& json, dom::parser& parser)
{
    std::size_t length = 0;
    for (int attempt = 0; attempt < 8; ++attempt) {
        length = json.find('}', length) + 1;
        if (length == 0)
            break;
        dom::element object;
        const bool isCopied = json.size() - length < simdjson::SIMDJSON_PADDING;
        if (parser.parse(json.data(), length, isCopied).get(object) == simdjson::SUCCESS) {
            json.remove_prefix(length);
            return object;
        }
    }
    return std::nullopt;
}

/// Decodes entry by entry, so that what is known of one stays in the processor's cache: a document of all of
/// them takes several times the memory of the file. Nothing when anything is wrong or unusual.
std::optional<Catalog> decodeEachEntry(std::string_view json)
{
    dom::parser parser;
    TextDecoder texts;
    Catalog catalog;
    for (char mark = '['; take(json, mark); mark = ',') {
        const std::size_t left = json.size();
        const auto entry = takeObject(json, parser);
        if (!entry)
            return std::nullopt;
        if (catalog.empty())
            catalog.reserve(left / (left - json.size()) + 1);
        StoreApp& app = catalog.emplace_back();
        if (!decodeEntry(*entry, qsizetype(catalog.size()), texts, app))
            return std::nullopt;
    }
    if (!take(json, ']') || json.find_first_not_of(whiteSpace) != std::string_view::npos)
        return std::nullopt;
    return catalog;
}

Result<Catalog> decodeDocument(Bytes json)
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
        if (auto catalog = decodeEachEntry({reinterpret_cast<const char*>(json.data()), json.size()}))
            return std::move(*catalog);
        return decodeDocument(json);
    } catch (const std::bad_alloc&) {
        return tl::unexpected(systemFailure(ENOMEM));
    }
}

Result<Catalog> readCatalog()
{
    const Platform& platform = Platform::current();
    return platform.files->read(bundle_layout::catalog(platform.bundles->mainBundle()))
        .and_then([](const QByteArray& json) { return decodeCatalog(std::as_bytes(std::span(json))); });
}
