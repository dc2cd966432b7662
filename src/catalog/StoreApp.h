#pragma once

#include "platform/Path.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// One catalogued application: the texts that describe it, and the name, size and digest of its archive. A
/// value that nobody changes once it is in a catalog. Texts are shown as they stand in the catalog file.
struct StoreApp {
    /// The identity: unique within a catalog, the key of rows and of what the store remembers.
    QString id;
    /// Also the name of the installed bundle without ".app", and of the icon resource without ".icns".
    QString name;
    /// The title of the section that lists the entry.
    QString category;
    QString subtitle;
    QString headline;
    QString description;
    /// The name of the accent colour. Kept, not shown.
    QString tint;
    QString version;
    QString bundleID;
    /// The lowest macOS version, as text.
    QString minimum;
    /// The file name of the archive in the resource folder `Packages`.
    QString archive;
    /// The archive's SHA-256 as 64 lower-case hexadecimal digits.
    QString sha256;
    /// The processor architectures of the build, as text.
    QString architecture;
    QStringList features;
    /// The size of the archive in bytes.
    qint64 bytes = 0;

    /// `bytes` in the conventions of the user's locale.
    QString size() const;
    /// The systems and processors that the build runs on.
    QString compatibility() const;
    /// The text that a search looks in.
    QString searchText() const;
    /// Where the archive lies in the program's own bundle. The file may be missing.
    Path packageURL() const;
    /// Where the application is installed, as of now: under its name in /Applications or ~/Applications with
    /// the right identifier, else where the system knows that identifier. Main thread.
    std::optional<Path> installedURL() const;

    /// All fields are equal; texts under canonical equivalence.
    bool operator==(const StoreApp& other) const;
};

/// Equal entries have equal hashes.
template <>
struct std::hash<StoreApp> {
    std::size_t operator()(const StoreApp& app) const;
};
