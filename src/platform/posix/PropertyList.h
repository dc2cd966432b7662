#pragma once

#include <QString>

#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

/// The texts that stand under `keys` in the top dictionary of a property list, one for each key, empty where
/// there is none. The list is in the XML form (DTD "PropertyList-1.0") or in the binary form ("bplist00": a
/// trailer, a table of offsets, objects that refer to each other by number). None when it is damaged as far
/// as it is read, when its top is no dictionary, or when it nests more than 64 levels deep. Does not trust
/// the list: reading takes time proportional to its size, and memory for the texts alone. Any thread.
std::optional<std::vector<QString>> propertyListTexts(
    std::span<const std::byte> list, std::initializer_list<QLatin1StringView> keys);
