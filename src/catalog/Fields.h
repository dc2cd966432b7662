#pragma once

#include "catalog/StoreApp.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>
#include <utility>

enum class CatalogKind {
    /// A store's `catalog.json`.
    Store,
    /// A maker's `collection.json`, which does not have what is known only of a packed archive.
    Collection,
};

/// A field of an entry, its key, and the first kind of file to have it.
template <class Value>
struct Field {
    std::string_view key;
    Value StoreApp::*member;
    CatalogKind first = CatalogKind::Collection;
};

template <class Value>
Field(std::string_view, Value StoreApp::*, CatalogKind = CatalogKind::Collection) -> Field<Value>;

/// The one list of the fields, in the order in which they are read. Whatever is done to every field is done
/// through it.
inline constexpr std::tuple fields{
    Field{"id", &StoreApp::id},
    Field{"name", &StoreApp::name},
    Field{"category", &StoreApp::category},
    Field{"subtitle", &StoreApp::subtitle},
    Field{"headline", &StoreApp::headline},
    Field{"description", &StoreApp::description},
    Field{"tint", &StoreApp::tint},
    Field{"version", &StoreApp::version},
    Field{"bundleID", &StoreApp::bundleID},
    Field{"minimum", &StoreApp::minimum},
    Field{"archive", &StoreApp::archive},
    Field{"sha256", &StoreApp::sha256, CatalogKind::Store},
    Field{"architecture", &StoreApp::architecture},
    Field{"features", &StoreApp::features},
    Field{"bytes", &StoreApp::bytes, CatalogKind::Store},
};

/// A key of an entry: its place in the list.
enum class CodingKeys : std::size_t {};

inline constexpr auto codingKeyTexts =
    std::apply([](const auto&... field) { return std::array{field.key...}; }, fields);

/// The key as it is spelled in a file.
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

/// Calls `visit(key, member)` for each field that files of this kind have; `app.*member` is the field.
template <class Visitor>
constexpr void forEachField(Visitor visit, CatalogKind kind = CatalogKind::Store)
{
    std::size_t place = 0;
    const auto visitNext = [&](const auto& field) {
        if (kind == CatalogKind::Store || field.first == CatalogKind::Collection)
            visit(static_cast<CodingKeys>(place), field.member);
        ++place;
    };
    std::apply([&](const auto&... field) { (visitNext(field), ...); }, fields);
}
