#pragma once

#include "pack/checks/CatalogText.h"

/// What entries must be beyond their form: texts that can be shown, names that can be files, nothing shared.
void checkEntries(const std::vector<EntryText>& entries, const QString& file, Findings& findings);

/// Whether the text can be the name of a file in every file system, with an extension behind it.
bool canBeFileName(const QString& text);

/// The name as a file system that ignores letter case compares it.
QString foldedName(const QString& name);

/// Whether the entry's page shows the screenshot.
bool showsScreenshot(const StoreApp& app);
