#pragma once

#include <QMargins>
#include <Qt>

#include <initializer_list>
#include <variant>

class QBoxLayout;
class QHBoxLayout;
class QLayout;
class QVBoxLayout;
class QWidget;

/// Takes the room that is left.
struct Spacer { };
/// Extra room along the stack, in pixels, beyond its spacing.
struct Gap {
    int size;
};

/// What stands in a stack. A widget that bleeds is placed by what lies inside its contents margins, which
/// reach over the neighbouring space, so that a ring or a halo moves nothing. Buttons bleed; any other widget
/// does where `bleeding` says so.
struct StackItem {
    StackItem(QWidget* widget) : content(widget) { }
    StackItem(QLayout* layout) : content(layout) { }
    StackItem(Spacer spacer) : content(spacer) { }
    StackItem(Gap gap) : content(gap) { }

    std::variant<QWidget*, QLayout*, Spacer, Gap> content;
    int stretch = 0;
    bool bleeds = false;
};

/// Takes a share of the room that is left.
StackItem stretched(StackItem item, int share = 1);
StackItem bleeding(QWidget* widget);

struct StackLook {
    int spacing = 0;
    QMargins margins = {};
    /// Across the stack, mirrored where the desktop reads right to left. Children that want to expand, and
    /// those that hold a layout without being a button, fill it instead.
    Qt::Alignment align = {};
};

/// Children below each other, at the leading edge unless `align` says otherwise.
QVBoxLayout* vstack(const StackLook& look, std::initializer_list<StackItem> items);

/// Children beside each other, in the middle unless `align` says otherwise.
QHBoxLayout* hstack(const StackLook& look, std::initializer_list<StackItem> items);

/// Adds to a stack what it would have got when it was made.
void append(QBoxLayout& stack, std::initializer_list<StackItem> items, Qt::Alignment align);
