#pragma once

#include "store/Store.h"

/// What the two buttons of an entry show, and the entry that they ask for.
struct ActionButtonsContent {
    StoreApp app;
    /// «Открыть» for an installed application, «Загрузить» for any other.
    QString primaryTitle;
    /// The archive is being saved: progress is shown, and saving cannot be asked for again.
    bool busy = false;
    QString saveToolTip;
    QString saveAccessibleName;

    bool operator==(const ActionButtonsContent&) const = default;
};

/// What the buttons of this entry show while entries with these ids are being saved; looks whether it is
/// installed now. Main thread.
ActionButtonsContent actionButtons(const StoreApp& app, const TextSet& busy);

/// What a row of a list shows of an entry.
struct AppRowContent {
    /// The name of the application whose icon the row shows.
    QString icon;
    QString iconAccessibleName;
    QString name;
    QString subtitle;
    QString meta;
    QString textAccessibleName;
    ActionButtonsContent actions;

    bool operator==(const AppRowContent&) const = default;
};

/// The row of this entry, likewise.
AppRowContent appRow(const StoreApp& app, const TextSet& busy);
