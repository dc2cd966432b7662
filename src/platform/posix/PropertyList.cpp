#include "platform/posix/PropertyList.h"

#include <QXmlStreamReader>
#include <QtEndian>

#include <algorithm>
#include <cstdint>

namespace {

using Bytes = std::span<const std::byte>;

/// The texts found so far; the first one under a key counts.
class Texts {
public:
    explicit Texts(std::initializer_list<QLatin1StringView> keys) : m_keys(keys), m_values(keys.size()) { }

    /// Where the text of that key belongs; null when it is not wanted, or there already.
    QString* wanted(QStringView key)
    {
        const auto at = std::size_t(std::find(m_keys.begin(), m_keys.end(), key) - m_keys.begin());
        return at < m_keys.size() && m_values[at].isEmpty() ? &m_values[at] : nullptr;
    }
    std::vector<QString> take() { return std::move(m_values); }

private:
    std::vector<QLatin1StringView> m_keys;
    std::vector<QString> m_values;
};

// --- The XML form ---

constexpr int deepest = 64;

/// Goes to the first element. A list declares no entities; where they are, few bytes may stand for many.
bool beginXml(QXmlStreamReader& reader)
{
    while (!reader.isStartElement()) {
        reader.readNext();
        if (reader.atEnd() || !reader.entityDeclarations().isEmpty())
            return false;
    }
    return true;
}

/// Passes over the rest of the element that has just begun. False when it is damaged, or nests too deep.
bool passOver(QXmlStreamReader& reader)
{
    for (int depth = 1; depth > 0 && !reader.atEnd();) {
        const auto token = reader.readNext();
        depth += token == QXmlStreamReader::StartElement ? 1 : 0;
        depth -= token == QXmlStreamReader::EndElement ? 1 : 0;
        if (depth > deepest)
            return false;
    }
    return !reader.hasError();
}

bool readXml(Bytes list, Texts& texts)
{
    QXmlStreamReader reader(
        QByteArray::fromRawData(reinterpret_cast<const char*>(list.data()), qsizetype(list.size())));
    if (!beginXml(reader) || reader.name() != u"plist" || !reader.readNextStartElement()
        || reader.name() != u"dict")
        return false;

    while (reader.readNextStartElement()) {
        const QString key = reader.name() == u"key" ? reader.readElementText() : QString();
        if (!reader.readNextStartElement())
            return false;
        QString* const text = reader.name() == u"string" ? texts.wanted(key) : nullptr;
        if (text)
            *text = reader.readElementText();
        else if (!passOver(reader))
            return false;
    }
    return !reader.hasError();
}

// --- The binary form ---

// Longer texts are nothing that is wanted here; so however often one is referred to, it costs little.
constexpr std::uint64_t longestKey = 64;
constexpr std::uint64_t longestText = 4096;

/// A whole number, its most significant byte first.
std::uint64_t number(Bytes bytes)
{
    std::uint64_t value = 0;
    for (const std::byte byte : bytes)
        value = value << 8 | std::to_integer<std::uint64_t>(byte);
    return value;
}

/// The objects of a binary list. Every number in it is looked at as a hostile one.
class BinaryList {
public:
    enum class Kind { Other, Ascii, Utf16, Dictionary };
    /// What stands at an object's beginning.
    struct Object {
        Kind kind = Kind::Other;
        /// Characters, or pairs of key and value.
        std::uint64_t count = 0;
        /// Where its content begins.
        std::uint64_t begin = 0;
    };

    explicit BinaryList(Bytes list) : m_list(list)
    {
        const Bytes trailer = list.last(trailerSize);
        m_offsetSize = number(trailer.subspan(6, 1));
        m_referenceSize = number(trailer.subspan(7, 1));
        m_objects = number(trailer.subspan(8, 8));
        m_top = number(trailer.subspan(16, 8));
        m_offsets = number(trailer.subspan(24, 8));
    }

    std::uint64_t top() const { return m_top; }

    std::optional<Object> object(std::uint64_t index) const
    {
        if (index >= m_objects)
            return std::nullopt;
        const auto offset = element(m_offsets, index, m_offsetSize);
        const auto marker = offset ? element(*offset, 0, 1) : std::nullopt;
        if (!marker)
            return std::nullopt;

        Object object{.kind = kindOf(*marker >> 4), .count = *marker & 15, .begin = *offset + 1};
        if (object.count != 15)
            return object;
        // The count did not fit: a whole number of 1, 2, 4 or 8 bytes follows.
        const auto size = element(object.begin, 0, 1);
        if (!size || *size >> 2 != 4)
            return std::nullopt;
        const std::uint64_t width = std::uint64_t{1} << (*size & 3);
        const auto count = element(object.begin + 1, 0, width);
        if (!count)
            return std::nullopt;
        object.count = *count;
        object.begin += 1 + width;
        return object;
    }

    /// The object that the dictionary refers to at `position`: its keys come first, then its values.
    std::optional<Object> referred(const Object& dictionary, std::uint64_t position) const
    {
        const auto index = element(dictionary.begin, position, m_referenceSize);
        return index ? object(*index) : std::nullopt;
    }

    /// Null for what is no text, or one of more characters than `longest`.
    QString text(const Object& object, std::uint64_t longest) const
    {
        const std::uint64_t width = object.kind == Kind::Utf16 ? 2 : 1;
        if (object.kind == Kind::Other || object.kind == Kind::Dictionary || object.count > longest
            || object.begin + object.count * width > m_list.size())
            return {};
        const auto* const begin = reinterpret_cast<const char*>(m_list.data()) + object.begin;
        const auto count = qsizetype(object.count);
        if (object.kind == Kind::Ascii)
            return QString::fromLatin1(begin, count);
        QString text(count, Qt::Uninitialized);
        qFromBigEndian<char16_t>(begin, count, text.data());
        return text;
    }

    static constexpr std::size_t trailerSize = 32;

private:
    static Kind kindOf(std::uint64_t marker)
    {
        return marker == 5 ? Kind::Ascii
            : marker == 6  ? Kind::Utf16
            : marker == 13 ? Kind::Dictionary
                           : Kind::Other;
    }

    /// The number at `index` in a row of numbers, each `width` bytes wide, that begins at `begin`.
    std::optional<std::uint64_t> element(std::uint64_t begin, std::uint64_t index, std::uint64_t width) const
    {
        const std::uint64_t size = m_list.size();
        if (width == 0 || width > 8 || begin > size || index >= (size - begin) / width)
            return std::nullopt;
        return number(m_list.subspan(begin + index * width, width));
    }

    Bytes m_list;
    std::uint64_t m_offsetSize = 0;
    std::uint64_t m_referenceSize = 0;
    std::uint64_t m_objects = 0;
    std::uint64_t m_top = 0;
    std::uint64_t m_offsets = 0;
};

bool readBinary(Bytes bytes, Texts& texts)
{
    if (bytes.size() < BinaryList::trailerSize)
        return false;
    const BinaryList list(bytes);
    const auto top = list.object(list.top());
    if (!top || top->kind != BinaryList::Kind::Dictionary)
        return false;

    for (std::uint64_t index = 0; index < top->count; ++index) {
        const auto key = list.referred(*top, index);
        const auto value = list.referred(*top, top->count + index);
        if (!key || !value)
            return false;
        if (QString* const text = texts.wanted(list.text(*key, longestKey)))
            *text = list.text(*value, longestText);
    }
    return true;
}

} // namespace

std::optional<std::vector<QString>> propertyListTexts(
    Bytes list, std::initializer_list<QLatin1StringView> keys)
{
    constexpr std::string_view binaryBeginning = "bplist00";
    const std::string_view text(reinterpret_cast<const char*>(list.data()), list.size());
    Texts texts(keys);
    const bool isRead = text.starts_with(binaryBeginning) ? readBinary(list, texts) : readXml(list, texts);
    return isRead ? std::optional(texts.take()) : std::nullopt;
}
