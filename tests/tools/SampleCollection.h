#pragma once

#include "pack/Bundle.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <map>
#include <string>

/// A complete collection of two small applications, Alvi and Bemmo, in a temporary folder.
class SampleCollection {
public:
    SampleCollection();

    /// An order to pack it into `output`, a place in the temporary folder.
    PackOrder order(const char* output = "out") const;
    /// The place in the temporary folder.
    Path path(const Path& relative) const;
    /// Makes `content` the whole content of a file; missing folders are made.
    void write(const Path& relative, const QByteArray& content) const;
    /// Replaces `before`, which must occur, by `after` in collection.json.
    void edit(const QByteArray& before, const QByteArray& after) const;

private:
    QTemporaryDir m_folder;
};

/// Every file below `folder` with its content.
std::map<std::string, QByteArray> filesBelow(const Path& folder);

/// A drawing that leaves the upper half of its square empty.
inline constexpr char lowerHalfDrawing[] =
    R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 8 8"><path fill="#ff0000" d="M0 4H8V8H0Z"/></svg>)";
