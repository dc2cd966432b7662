#include "catalog/JsonText.h"

#include <QRegularExpression>

#include <algorithm>
#include <new>

using namespace Qt::StringLiterals;
namespace ondemand = simdjson::ondemand;
using Kind = JsonFault::Kind;
using ondemand::json_type;

namespace {

constexpr std::size_t deepest = 1024;

/// What a value or a key that cannot be read throws.
struct Unreadable {
    Kind kind;
    const char* place;
};

void expect(bool isRead, Kind kind, const char* place)
{
    if (!isRead)
        throw Unreadable{kind, place};
}

/// Whether it is a number of JSON, which may be too large for every type of C++.
bool isNumber(std::string_view token)
{
    static const QRegularExpression number(
        u"^-?(0|[1-9][0-9]*)([.][0-9]+)?([eE][+-]?[0-9]+)?\\s*$"_s, QRegularExpression::DontCaptureOption);
    return number.match(QString::fromLatin1(token.data(), qsizetype(token.size()))).hasMatch();
}

/// Reads everything in the value, since simdjson finds no fault in what is not read.
void readAll(ondemand::value value, std::size_t depth)
{
    const std::string_view token = value.raw_json_token();
    const char* const place = token.data();
    const json_type type = value.type();
    expect(
        depth <= deepest || (type != json_type::array && type != json_type::object), Kind::Structure, place);
    switch (type) {
    case json_type::array:
        for (ondemand::value item : value.get_array())
            readAll(item, depth + 1);
        break;
    case json_type::object:
        for (ondemand::field field : value.get_object()) {
            const char* const key = field.key().raw();
            expect(field.unescaped_key().error() == simdjson::SUCCESS, Kind::Text, key);
            readAll(field.value(), depth + 1);
        }
        break;
    case json_type::string:
        expect(value.get_string().error() == simdjson::SUCCESS, Kind::Text, place);
        break;
    case json_type::number:
        expect(value.get_double().error() == simdjson::SUCCESS || isNumber(token), Kind::Number, place);
        break;
    case json_type::boolean:
        expect(value.get_bool().error() == simdjson::SUCCESS, Kind::Structure, place);
        break;
    default:
        expect(value.is_null().error() == simdjson::SUCCESS, Kind::Structure, place);
    }
}

/// Reads a list of one value.
void readAll(ondemand::document& list)
{
    std::size_t count = 0;
    for (ondemand::value value : list.get_array()) {
        expect(++count == 1, Kind::Structure, value.raw_json_token().data());
        readAll(value, count);
    }
    const bool isAtEnd = list.current_location().error() != simdjson::SUCCESS;
    if (count == 0 || !isAtEnd)
        throw simdjson::simdjson_error(simdjson::TRAILING_CONTENT);
}

} // namespace

JsonText::JsonText(std::string_view text)
{
    m_list.reserve(text.size() + 2 + simdjson::SIMDJSON_PADDING);
    m_list.append("[").append(text).append("]");
    m_lineEnd = m_list.find('\n');
    if (m_parser.allocate(m_list.size(), 2 * deepest) == simdjson::MEMALLOC)
        throw std::bad_alloc();
}

simdjson::error_code JsonText::open(std::size_t from, std::size_t size)
{
    return m_parser.iterate(m_list.data() + from, size, m_list.capacity() - from).get(m_document);
}

/// Makes the list end before the first line with a text that cannot be told from what is around it, and says
/// why. No text goes on in the next line, so that each can be opened on its own.
Kind JsonText::cutBrokenLine()
{
    auto reason = simdjson::SUCCESS;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = std::min(m_list.find('\n', start), m_list.size());
        reason = open(start, end - start);
        if ((reason != simdjson::SUCCESS && reason != simdjson::EMPTY) || end == m_list.size())
            break;
        start = end + 1;
    }
    m_list.resize(start);
    m_list.push_back(']');
    return reason == simdjson::UTF8_ERROR ? Kind::NotUtf8 : Kind::Text;
}

std::optional<JsonFault> JsonText::fault()
{
    std::optional<Kind> cut;
    if (open(0, m_list.size()) != simdjson::SUCCESS) {
        cut = cutBrokenLine();
        (void)open(0, m_list.size());
    }
    const char* const end = &m_list.back();
    Unreadable first{Kind::Structure, end};
    try {
        readAll(m_document);
        if (!cut)
            return std::nullopt;
    } catch (const Unreadable& found) {
        first = found;
    } catch (const simdjson::simdjson_error&) {
        if (m_document.current_location().get(first.place) != simdjson::SUCCESS)
            first.place = end;
    }
    if (cut && first.place == end)
        first.kind = *cut;
    return JsonFault{first.kind, lineOf(first.place)};
}

ondemand::value JsonText::value()
{
    m_document.rewind();
    return *m_document.get_array().begin();
}

int JsonText::lineOf(const char* place)
{
    while (m_lineEnd < std::size_t(place - m_list.data())) {
        m_lineEnd = m_list.find('\n', m_lineEnd + 1);
        ++m_line;
    }
    return m_line;
}
