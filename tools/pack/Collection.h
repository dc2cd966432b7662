#pragma once

#include "pack/Outcome.h"
#include "platform/Path.h"

#include <QStringList>

#include <vector>

/// One application as the maker of the collection describes it: the catalog's entry without what is known
/// only once its archive has been packed.
struct Entry {
    QString id;
    QString name;
    QString category;
    QString subtitle;
    QString headline;
    QString description;
    QString tint;
    QString version;
    QString bundleID;
    QString minimum;
    QString archive;
    QString architecture;
    QStringList features;

    bool operator==(const Entry&) const = default;
};

/// The entries of a `collection.json` in their order. No two share an id, a name or an archive, and names and
/// archives can be file names. A key that is missing, unknown or of the wrong kind is a failure.
Outcome<std::vector<Entry>> readCollection(const Path& file);
