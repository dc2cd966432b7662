#pragma once

#include <QColor>
#include <QRectF>
#include <QStringView>

class QPainter;

/// Draws the line drawing of that name, made on a grid of 24 × 24, into the largest square in the middle of
/// `box`. There are: sparkles, square.grid.2x2, wrench.and.screwdriver, play.rectangle, doc.text,
/// checkmark.circle, arrow.down.circle, person.crop.circle, arrow.clockwise, arrow.up.right, magnifyingglass,
/// shippingbox, chevron.left, checkmark, xmark. Where the painter's layout direction is right to left,
/// drawings that point along a line of text are mirrored.
void drawSymbol(QPainter& painter, QStringView name, const QRectF& box, const QColor& color);
