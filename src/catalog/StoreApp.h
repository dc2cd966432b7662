#pragma once

#include "platform/Path.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// What the store knows of one application. Nobody changes an entry once it is in a catalog, and nobody trims
/// or corrects its texts.
struct StoreApp {
    /// Tells it from every other entry, also when its version changes.
    QString id;
    /// Names the icon (`<name>.icns`) and the installed bundle (`<name>.app`) too.
    QString name;
    /// The section of the sidebar where the entry belongs, by its title.
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
    /// A file name in the bundle's `Resources/Packages`, and the name that a save proposes.
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
