#pragma once

#include "store/Store.h"

/// What the two buttons of an entry show.
struct ActionButtonsContent {
    /// «Открыть» for an installed application, «Загрузить» for any other.
    QString primaryTitle;
    /// The archive is being saved: progress is shown, and saving cannot be asked for again.
    bool busy = false;
    QString saveToolTip;
    QString saveAccessibleName;

    bool operator==(const ActionButtonsContent&) const = default;
};

/// What the buttons of this entry show as of now; looks whether it is installed.
ActionButtonsContent actionButtons(const StoreApp& app, const Store& store);

/// What a row of a list shows of an entry.
struct AppRowContent {
    QString name;
    QString subtitle;
    QString meta;
    QString iconAccessibleName;

    bool operator==(const AppRowContent&) const = default;
};

AppRowContent appRow(const StoreApp& app);
