#pragma once

#include "platform/Path.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

/// Makes the folders that the file lies in, too.
inline void writeFile(const Path& file, const QByteArray& content,
    std::filesystem::perms permissions = std::filesystem::perms::owner_read
        | std::filesystem::perms::owner_write)
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content.toStdString();
    std::filesystem::permissions(file, permissions);
}

/// A property list in its XML form.
inline QByteArray xmlList(const QByteArray& content)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)" + content
        + "</dict></plist>";
}

inline QByteArray xmlIdentifier(const QByteArray& identifier)
{
    return "<key>CFBundleIdentifier</key><string>" + identifier + "</string>";
}

/// A bundle with this Info.plist and no program.
inline Path makeBundle(const Path& bundle, const QByteArray& list)
{
    writeFile(bundle / "Contents/Info.plist", list);
    return bundle;
}

/// Each test has a folder of its own.
struct FolderTest : testing::Test {
    QTemporaryDir temporary;
    const Path folder = toPath(temporary.path());
};
