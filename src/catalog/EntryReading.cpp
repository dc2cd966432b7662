#include "catalog/EntryReading.h"

#include "catalog/JsonText.h"

#include <concepts>
#include <cstdint>
#include <utility>

namespace ondemand = simdjson::ondemand;

namespace {

QString toText(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

bool take(ondemand::value value, QString& field)
{
    std::string_view text;
    if (value.get_string().get(text) != simdjson::SUCCESS)
        return false;
    field = toText(text);
    return true;
}

bool take(ondemand::value value, QStringList& field)
{
    ondemand::array items;
    if (value.get_array().get(items) != simdjson::SUCCESS)
        return false;
    QStringList texts;
    for (ondemand::value item : items) {
        if (!take(item, texts.emplaceBack()))
            return false;
    }
    field = texts;
    return true;
}

template <std::integral Value>
bool take(ondemand::value value, Value& field)
{
    if constexpr (std::same_as<Value, bool>) {
        return value.get_bool().get(field) == simdjson::SUCCESS;
    } else {
        std::int64_t number = 0;
        if (value.get_int64().get(number) != simdjson::SUCCESS || !std::in_range<Value>(number))
            return false;
        field = static_cast<Value>(number);
        return true;
    }
}

KeyReading::State take(ondemand::value value, CodingKeys wanted, StoreApp& app)
{
    if (value.is_null())
        return KeyReading::State::Null;
    bool isTaken = false;
    forEachField([&](CodingKeys key, auto field) {
        if (key == wanted)
            isTaken = take(value, app.*field);
    });
    return isTaken ? KeyReading::State::Read : KeyReading::State::WrongType;
}

EntryReading readEntry(ondemand::value element, JsonText& json)
{
    EntryReading entry;
    entry.line = json.lineOf(element.raw_json_token().data());
    ondemand::object object;
    entry.isObject = element.get_object().get(object) == simdjson::SUCCESS;
    if (!entry.isObject)
        return entry;
    for (ondemand::field field : object) {
        const int line = json.lineOf(field.key().raw());
        const std::string_view text = field.unescaped_key();
        const auto key = codingKey(text);
        if (key && entry.at(*key).state == KeyReading::State::Missing)
            entry.keys.at(static_cast<std::size_t>(*key)) = {take(field.value(), *key, entry.app), line};
        else
            entry.oddKeys.push_back({toText(text), line});
    }
    return entry;
}

} // namespace

CatalogReading readEntries(std::string_view text)
{
    JsonText json(text);
    CatalogReading reading;
    reading.fault = json.fault();
    ondemand::array list;
    if (reading.fault || json.value().get_array().get(list) != simdjson::SUCCESS)
        return reading;
    reading.isList = true;
    for (ondemand::value element : list)
        reading.entries.push_back(readEntry(element, json));
    return reading;
}
