#pragma once

#include "platform/Failure.h"
#include "platform/Path.h"

#include <QByteArray>

#include <functional>
#include <system_error>

/// The domain of failures whose sentence is one English line for the maker.
inline constexpr QLatin1StringView packDomain("Pack");

/// The failure of what could not be done at `place`: "cannot read X: No such file or directory".
tl::unexpected<Failure> cannot(QLatin1StringView what, const Path& place, const QString& reason);
tl::unexpected<Failure> cannot(QLatin1StringView what, const Path& place, const std::error_code& reason);

// Modes are those that the umask leaves: the tool sets one of 022.

/// The whole file.
Result<QByteArray> readFile(const Path& file);

/// Hands the file over in blocks, as long as they are taken.
Result<void> readBlocks(const Path& file, const std::function<Result<void>(QByteArrayView)>& take);

/// Makes a file, in a folder that is made if need be.
Result<void> writeFile(const Path& file, const QByteArray& content);

/// Copies a file, a link or a folder with all that is in it. Of a file's mode only what its owner may execute
/// is kept.
Result<void> copyTree(const Path& from, const Path& to);

Result<void> makeFolders(const Path& folder);

/// The size and the SHA-256 of a file.
struct FileDigest {
    qint64 bytes = 0;
    QString sha256;
};
Result<FileDigest> digestOf(const Path& file);
