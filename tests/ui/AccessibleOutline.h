#pragma once

#include <QWidget>

/// What assistive technology meets in a widget, in reading order: a line for each node with its role, name
/// and the states that matter, the texts drawn in it and its tooltip, indented by depth. Nodes without a name
/// are passed over, but for controls.
QString accessibleOutline(QWidget& widget);
