#pragma once

class QWidget;

/// Assistive technology skips this widget: it is there for the eye alone.
void makeDecorative(QWidget& widget);

/// Gives the kit's widgets their accessible nodes. Style::applyTo() does this.
void installAccessibility();
