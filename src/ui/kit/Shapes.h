#pragma once

#include <QPainterPath>

/// A rectangle whose corners flow into its sides without a jump of curvature.
QPainterPath continuousRect(const QRectF& rect, qreal radius);
