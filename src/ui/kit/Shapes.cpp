#include "ui/kit/Shapes.h"

#include <array>

namespace {

// Of a corner of radius 1, measured from its tip along both sides: where the curve leaves the side, where its
// second point lies, and where it crosses the diagonal. The first three points of each half lie on the side,
// so that the curvature grows from nothing; the diagonal point is a circle's.
constexpr qreal cornerStart = 1.53;
constexpr qreal cornerPull = 0.99;
constexpr qreal cornerMiddle = 0.2929;

} // namespace

QPainterPath continuousRect(const QRectF& rect, qreal radius)
{
    const qreal r = qMin(radius, qMin(rect.width(), rect.height()) / 2 / cornerStart);
    const std::array<QPointF, 4> tips{rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft()};
    const std::array<QPointF, 4> sides{QPointF(0, 1), QPointF(-1, 0), QPointF(0, -1), QPointF(1, 0)};

    QPainterPath path;
    for (size_t i = 0; i < tips.size(); ++i) {
        const QPointF tip = tips[i];
        const QPointF in = sides[i] * r;
        const QPointF out = -sides[(i + 1) % sides.size()] * r;
        const QPointF middle = tip + (in + out) * cornerMiddle;
        const QPointF start = tip + in * cornerStart;
        i == 0 ? path.moveTo(start) : path.lineTo(start);
        path.cubicTo(tip + in * cornerPull, tip + in * 2 * cornerMiddle, middle);
        path.cubicTo(tip + out * 2 * cornerMiddle, tip + out * cornerPull, tip + out * cornerStart);
    }
    path.closeSubpath();
    return path;
}
