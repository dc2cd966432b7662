#pragma once

#include "catalog/Fields.h"
#include "platform/Files.h"

#include <QByteArray>
#include <QList>

#include <cstddef>
#include <span>

/// The entries in the order of the catalog file. A copy shares them.
using Catalog = QList<StoreApp>;

/// The domain of the failures below; their codes are `CatalogError`.
inline constexpr QLatin1StringView catalogDomain("Catalog");

enum class CatalogError { NotJson, NotAList, NotAnEntry, MissingKey, NullValue, WrongType };

/// Reads a catalog file: UTF-8 JSON (RFC 8259), an array of objects that carry all fifteen keys. Other keys
/// are ignored. Fails as a whole: the failure names the line of broken JSON, or the entry, counted from 1,
/// and its first offending key in the order of `CodingKeys`, or says that memory is short. Any bytes are
/// safe. Any thread.
Result<Catalog> decodeCatalog(std::span<const std::byte> json);

/// The content of a catalog file with these entries, which `decodeCatalog` reads: one key a line. Any thread.
QByteArray encodeCatalog(const Catalog& catalog, CatalogKind kind = CatalogKind::Store);

/// Reads the catalog of the store's bundle at `store`. Any thread.
Result<Catalog> readCatalog(const Path& store, const Files& files);
