#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

/// The keys of an entry in the catalog file, in the order in which they are read.
enum class CodingKeys {
    id,
    name,
    category,
    subtitle,
    headline,
    description,
    tint,
    version,
    bundleID,
    minimum,
    archive,
    sha256,
    architecture,
    features,
    bytes,
};

inline constexpr std::array codingKeyTexts = std::to_array<std::string_view>({
    "id",
    "name",
    "category",
    "subtitle",
    "headline",
    "description",
    "tint",
    "version",
    "bundleID",
    "minimum",
    "archive",
    "sha256",
    "architecture",
    "features",
    "bytes",
});

/// The key as it is spelled in the file.
constexpr std::string_view keyText(CodingKeys key)
{
    return codingKeyTexts.at(static_cast<std::size_t>(key));
}

/// The key that is spelled like this; none when there is no such key.
constexpr std::optional<CodingKeys> codingKey(std::string_view text)
{
    const auto* const found = std::ranges::find(codingKeyTexts, text);
    if (found == codingKeyTexts.end())
        return std::nullopt;
    return static_cast<CodingKeys>(found - codingKeyTexts.begin());
}

enum class CatalogKind {
    /// A store's `catalog.json`.
    Store,
    /// A maker's `collection.json`, which does not have what is known only of a packed archive.
    Collection,
};

/// Whether entries of this kind of file have the key.
constexpr bool belongsTo(CatalogKind kind, CodingKeys key)
{
    return kind == CatalogKind::Store || (key != CodingKeys::sha256 && key != CodingKeys::bytes);
}
