#pragma once

#include <QString>

#include <filesystem>

using Path = std::filesystem::path;

/// The location that a text names, in the file system's UTF-8.
inline Path toPath(const QString& text)
{
    return Path(text.toStdString());
}

/// A location as a text to show or to hand to Qt.
inline QString toText(const Path& path)
{
    return QString::fromStdString(path.string());
}
