#pragma once

#include "platform/Path.h"

#include <QByteArray>

#include <map>
#include <string>

/// What lies at one place of an application.
struct TreeNode {
    enum class Kind { Folder, File, Link, Other };

    Kind kind = Kind::Other;
    bool isExecutable = false;
    bool setsID = false;
    qint64 size = 0;
    /// Where a link leads.
    std::string target{};
    /// The first bytes of a file, enough to tell a program.
    QByteArray head{};
    /// When the file was last written; nothing in an archive.
    std::filesystem::file_time_type written{};
};

/// An application's folder or archive: its places, named relative to it, in the order of their bytes, so that
/// a folder comes before what lies in it.
struct Tree {
    using Nodes = std::map<std::string, TreeNode>;
    Nodes nodes;
    /// Contents/Info.plist, if it is there and no larger than such a list can be.
    QByteArray infoList;
};

/// How much of each file is kept, and of the list.
inline constexpr qint64 headSize = 512;
inline constexpr qint64 largestInfoList = qint64(1) << 20;

/// Where a link or a way over links ends.
struct Resolved {
    enum class End { Found, Missing, Outside };
    End end;
    std::string name;
};
Resolved resolve(const Tree& tree, const std::string& name);
