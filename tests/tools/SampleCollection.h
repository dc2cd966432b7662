#pragma once

#include "platform/Path.h"

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

/// How a program ended and what it wrote.
struct Ending {
    int status;
    std::string output;
    std::string errors;
};
Ending run(const QString& program, const QStringList& arguments);

/// A folder with a collection `c` of four small applications without any fault, `c/apps` among it.
class SampleCollection {
public:
    SampleCollection();

    Path path(const Path& relative) const { return toPath(m_folder.path()) / relative; }
    QString text(const Path& relative) const { return toText(path(relative)); }
    /// Makes `content` the whole content of a file; missing folders are made.
    void write(const Path& relative, const QByteArray& content) const;
    QByteArray read(const Path& relative) const;
    /// Replaces `before`, which must occur, by `after` in a file.
    void edit(const Path& relative, const QByteArray& before, const QByteArray& after) const;
    /// Packs the collection into `store` and gives how that ended.
    Ending pack(const Path& store, const QStringList& options = {}) const;

private:
    QTemporaryDir m_folder;
};
