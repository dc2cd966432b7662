#pragma once

#include "catalog/Fields.h"
#include "pack/findings/Finding.h"

#include <QByteArray>

#include <array>

/// An entry as it stands in a file.
struct EntryText {
    /// Fields that the file does not give are empty.
    StoreApp app{};
    int line = 0;
    /// The line of each key; 0 where it is missing or holds what it must not.
    std::array<int, codingKeyTexts.size()> keyLines{};

    /// Where the key stands, or else the entry.
    Place at(const QString& file, CodingKeys key) const;
};

/// The entries of a catalog file, and everything that is wrong with them by themselves.
std::vector<EntryText> readEntries(
    const QByteArray& json, const QString& file, CatalogKind kind, Findings& findings);
