#pragma once

#include "catalog/StoreApp.h"
#include "pack/findings/Finding.h"
#include "pack/trees/Tree.h"

#include <QStringList>

/// What an application says of itself in its Info.plist. Texts that it does not give are empty.
struct ApplicationInfo {
    QString identifier;
    QString version;
    QString minimum;
    QString executable;
    QString iconFile;
};

/// None when the list cannot be read.
std::optional<ApplicationInfo> readInfo(const Tree& tree);

/// What a file that begins like this runs on, in the catalog's words: "arm64", "x86_64". None when it is no
/// program; empty for a script, which runs anywhere.
std::optional<QStringList> processorsOf(const QByteArray& head);

/// The file that the application runs, behind links; null when there is none.
const TreeNode* executableOf(const Tree& tree, const ApplicationInfo& info);

/// Where its icon lies, behind links; none when there is none.
std::optional<std::string> iconOf(const Tree& tree, const ApplicationInfo& info);

/// Whether the application can be run.
void checkProgram(const Tree& tree, const Place& place, Findings& findings);

/// Whether it is what the entry says.
void checkApplication(const Tree& tree, const StoreApp& app, const Place& place, Findings& findings);
