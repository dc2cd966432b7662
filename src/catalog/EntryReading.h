#pragma once

#include "catalog/Fields.h"
#include "catalog/JsonFault.h"

#include <array>
#include <optional>
#include <vector>

/// What stands at a key of an entry.
struct KeyReading {
    enum class State { Missing, Null, WrongType, Read };

    State state = State::Missing;
    /// Counted from 1; 0 where it is missing.
    int line = 0;
};

/// A key that is none of an entry's, or stands in it again.
struct OddKey {
    QString text;
    int line = 0;
};

/// An element of the list in a catalog file.
struct EntryReading {
    int line = 0;
    bool isObject = false;
    /// Fields that could not be read are empty.
    StoreApp app;
    std::array<KeyReading, codingKeyTexts.size()> keys{};
    std::vector<OddKey> oddKeys;

    const KeyReading& at(CodingKeys key) const { return keys.at(static_cast<std::size_t>(key)); }
};

/// What stands in a catalog file, right or wrong.
struct CatalogReading {
    std::optional<JsonFault> fault;
    /// Whether it is a list, which a file with a fault is not.
    bool isList = false;
    std::vector<EntryReading> entries;
};

/// Reads the text of a catalog file. Of a key that stands in an entry twice the first one counts. Any bytes
/// are safe. Throws where memory is short. Any thread.
CatalogReading readEntries(std::string_view text);
