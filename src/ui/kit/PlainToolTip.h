#pragma once

#include <QString>

class QHelpEvent;
class QWidget;

/// Shows a tooltip exactly as typed, whatever looks like markup in it. An empty text hides the tooltip.
void showPlainToolTip(const QHelpEvent& event, const QString& text, QWidget& widget);
