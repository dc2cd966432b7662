#pragma once

#include "ui/model/CatalogPage.h"
#include "ui/model/DetailPage.h"

/// A section in the sidebar.
struct SectionItem {
    Section section;
    bool isChosen = false;

    bool operator==(const SectionItem&) const = default;
};

/// The left column, from top to bottom.
struct SidebarContent {
    /// The file may be missing.
    Path brandImage;
    QString brandName;
    QString searchPlaceholder;
    QString search;
    std::array<SectionItem, sectionCount> sections;
    QString maker;
    QString makerNote;

    bool operator==(const SidebarContent&) const = default;
};

/// What the user is told over the dimmed window until it is dismissed.
struct Message {
    QString title;
    QString text;
    QString button;

    bool operator==(const Message&) const = default;
};

/// What the program says of itself.
Message about(const QString& version);

/// Everything that the window shows.
struct WindowContent {
    QString title;
    /// What the refresh button says of itself.
    QString refreshHelp;
    SidebarContent sidebar;
    std::variant<CatalogPage, DetailPage> page;
    std::optional<Message> message;

    bool operator==(const WindowContent&) const = default;
};

/// The window as of now: a function of what the user has chosen to see, of the store, and of what is
/// installed on this machine. Main thread.
WindowContent windowContent(const ViewState& view, const Store& store);
