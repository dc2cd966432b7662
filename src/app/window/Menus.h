#pragma once

#include <QKeySequence>
#include <QString>

#include <vector>

/// What a menu item does.
enum class Command {
    About,
    VisitSite,
    Quit,
    Close,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    Delete,
    SelectAll,
    Find,
    Refresh,
    FullScreen,
    Minimize,
    Zoom,
};

/// One line of a menu.
struct MenuItem {
    Command command;
    QString title;
    QKeySequence shortcut;
    /// A line is drawn above the item.
    bool opensGroup = false;
};

struct Menu {
    QString title;
    std::vector<MenuItem> items;
};

/// The menu bar from left to right.
std::vector<Menu> menus();
