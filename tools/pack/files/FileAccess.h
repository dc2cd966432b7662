#pragma once

#include "platform/Failure.h"
#include "platform/Path.h"

#include <QByteArray>
#include <QFile>

#include <system_error>

/// The domain of failures whose sentence is one English line for the maker.
inline constexpr QLatin1StringView packDomain("Pack");

/// The failure of what could not be done at `place`: "cannot read X: No such file or directory".
tl::unexpected<Failure> cannot(QLatin1StringView what, const Path& place, const QString& reason);
tl::unexpected<Failure> cannot(QLatin1StringView what, const Path& place, const std::error_code& reason);

/// The mode 0644, in which all files are made that are no programs.
inline constexpr QFile::Permissions readableByAll = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser
    | QFile::WriteUser | QFile::ReadGroup | QFile::ReadOther;

/// The whole file.
Result<QByteArray> readFile(const Path& file);

/// Appends to an open file without a buffer. Qt has no reason for a disk that takes only a part; this has.
std::error_code writeAll(const QFile& file, const char* bytes, std::size_t size);

/// Makes a new file with mode 0644, whatever the umask, in a folder that is made if need be.
Result<void> writeFile(const Path& file, const QByteArray& content);

/// Copies a file, a link or a folder with all that is in it. Modes become 0755 for folders and what its owner
/// may execute, 0644 for the rest.
Result<void> copyTree(const Path& from, const Path& to);

/// Makes folders with mode 0755.
Result<void> makeFolders(const Path& folder);

/// The size and the SHA-256 of a file.
struct FileDigest {
    qint64 bytes = 0;
    QString sha256;
};
Result<FileDigest> digestOf(const Path& file);
