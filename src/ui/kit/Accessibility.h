#pragma once

class QWidget;

/// Assistive technology skips this widget: it is there for the eye alone.
void makeDecorative(QWidget& widget);

/// Assistive technology announces this widget as a picture.
void makeGraphic(QWidget& widget);

/// Gives the kit's widgets their accessible nodes. Style::applyTo() does this.
void installAccessibility();
