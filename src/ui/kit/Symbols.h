#pragma once

#include <QColor>
#include <QRectF>
#include <QStringList>

class QPainter;

/// The line drawings there are.
QStringList symbolNames();

/// Draws the line drawing of that name, made on a grid of 24 × 24, into the largest square in the middle of
/// `box`. Where the painter's layout direction is right to left,
/// drawings that point along a line of text are mirrored.
void drawSymbol(QPainter& painter, QStringView name, const QRectF& box, const QColor& color);
