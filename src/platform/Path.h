#pragma once

#include <QString>

#include <filesystem>

using Path = std::filesystem::path;

/// The location that a text names, in the file system's UTF-8.
inline Path toPath(const QString& text)
{
    return Path(text.toStdString());
}

/// The location below `folder` that a text of the catalog names. The text is appended as it stands: one that
/// begins with a slash leads below the folder too, and no character of it ends it.
inline Path below(const Path& folder, const QString& name)
{
    return (folder / "") += name.toStdString();
}

/// A location as a text to show or to hand to Qt.
inline QString toText(const Path& path)
{
    return QString::fromStdString(path.string());
}
