#pragma once

#include <QImage>
#include <QPainterPath>

/// A rectangle whose corners flow into its sides without a jump of curvature.
QPainterPath continuousRect(const QRectF& rect, qreal radius);

/// A shadow lies around its picture: draw `image` with its top left corner at the picture's plus `position`.
struct Shadow {
    QImage image;
    QPointF position;
};

/// The soft shadow of a picture's opaque parts, `blur` and `offset` in logical pixels. Costs a millisecond or
/// two: keep it as long as the picture.
Shadow shadowOf(const QImage& picture, qreal blur, QPointF offset, const QColor& color);
