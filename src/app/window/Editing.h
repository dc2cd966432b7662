#pragma once

#include "app/window/Menus.h"

class QWidget;

/// Whether an editing command would do anything to this widget now; it may be none.
bool canEdit(QWidget* focused, Command command);

/// Does an editing command to a text. Any other widget, or none, has no use for it.
void edit(QWidget* focused, Command command);
