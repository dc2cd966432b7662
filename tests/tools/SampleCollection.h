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

/// A folder with a collection `c` of four small applications without any fault, and a bundle `program.app` to
/// take a store's program from. Names below are relative to it.
class SampleCollection {
public:
    SampleCollection();

    Path path(const Path& relative) const { return toPath(m_folder.path()) / relative; }
    QByteArray read(const Path& relative) const;
    void write(const Path& relative, const QByteArray& content) const;

    Ending shell(const QString& script) const;
    Ending tool(const QStringList& arguments) const;
    /// Packs the collection into `store`.
    Ending pack(const QString& store, const QStringList& options = {}) const;
    /// A shell's words for the same.
    static QString packing(const QString& collection, const QString& store);

private:
    void writeBundle(const Path& bundle, const QByteArray& identifier) const;
    Ending run(const QString& program, const QStringList& arguments) const;

    QTemporaryDir m_folder;
};
