#pragma once

#include "catalog/Catalog.h"

#include <ostream>

namespace sample {

/// A complete entry; a test changes the one field that it is about.
StoreApp brisko();
/// Another complete entry, which differs in every field.
StoreApp kadrilo();

/// A catalog file with these entries.
inline QByteArray catalogFile(const Catalog& apps)
{
    return encodeCatalog(apps);
}

} // namespace sample

/// How test output names an entry.
void PrintTo(const StoreApp& app, std::ostream* out);
void PrintTo(const Failure& failure, std::ostream* out);

/// How test output shows a Qt text.
void PrintTo(const QString& text, std::ostream* out);
