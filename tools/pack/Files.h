#pragma once

#include "pack/Outcome.h"
#include "platform/Path.h"

#include <QByteArray>

/// The whole file.
Outcome<QByteArray> readFile(const Path& file);

/// Makes `content` the whole content of `file`. After a failure the file is what it was before.
Outcome<void> writeFile(const Path& file, const QByteArray& content);

/// The line for a file or folder at `place` with which something could not be done: "cannot read X: no such
/// file".
QString cannot(QLatin1StringView what, const Path& place, const QString& reason);
