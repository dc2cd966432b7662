#pragma once

class QWidget;

/// Assistive technology skips this widget: it is there for the eye alone.
void makeDecorative(QWidget& widget);

/// A sheet or a modal dialog lies over this widget, be it in a sheet itself: whatever it is asked for has to
/// wait.
bool isCovered(const QWidget& widget);

/// Assistive technology announces this widget as a picture.
void makeGraphic(QWidget& widget);

/// Gives the kit's widgets their accessible nodes. Style::applyTo() does this.
void installAccessibility();
