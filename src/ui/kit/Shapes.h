#pragma once

#include <QImage>
#include <QPainterPath>

#include <functional>

class QPainter;

/// A rectangle whose corners flow into its sides without a jump of curvature.
QPainterPath continuousRect(const QRectF& rect, qreal radius);

/// Paints shapes of one colour, antialiased, within `bounds`; `draw` gets a painter in the same coordinates.
/// Where they overlap, the colour counts once. Qt shares every shape of some dozen edges among threads, and
/// to wait for those takes longer than to fill a small shape; here it does not.
void drawShapes(QPainter& painter, const QRectF& bounds, const std::function<void(QPainter&)>& draw);

/// A shadow lies around its picture: draw `image` with its top left corner at the picture's plus `position`.
struct Shadow {
    QImage image;
    QPointF position;
};

/// The soft shadow of a picture's opaque parts, `blur` and `offset` in logical pixels. Costs a millisecond or
/// two: keep it as long as the picture.
Shadow shadowOf(const QImage& picture, qreal blur, QPointF offset, const QColor& color);
