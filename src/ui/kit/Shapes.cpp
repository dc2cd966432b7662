#include "ui/kit/Shapes.h"

#include <QPainter>

#include <array>
#include <cmath>
#include <vector>

namespace {

// Of a corner of radius 1, measured from its tip along both sides: where the curve leaves the side, where its
// second point lies, and where it crosses the diagonal. The first three points of each half lie on the side,
// so that the curvature grows from nothing; the diagonal point is a circle's.
constexpr qreal cornerStart = 1.53;
constexpr qreal cornerPull = 0.99;
constexpr qreal cornerMiddle = 0.2929;

/// A blur leaves no detail as fine as this many pixels; it is computed for so many at once.
constexpr int coarseness = 4;

/// Averages each run of 2 × reach + 1 values of `line`, beyond its ends nothing.
void averageLine(uchar* line, qsizetype count, qsizetype step, int reach, std::vector<uchar>& copy)
{
    const int width = 2 * reach + 1;
    for (qsizetype i = 0; i < count; ++i)
        copy[size_t(i)] = line[i * step];
    int sum = 0;
    for (qsizetype i = 0; i < qMin<qsizetype>(reach, count); ++i)
        sum += copy[size_t(i)];
    for (qsizetype i = 0; i < count; ++i) {
        sum += i + reach < count ? copy[size_t(i + reach)] : 0;
        sum -= i > reach ? copy[size_t(i - reach - 1)] : 0;
        line[i * step] = uchar(sum / width);
    }
}

/// Three averages in each direction come close to a Gaussian.
void soften(QImage& alpha, qreal deviation)
{
    const int reach = qMax(1, qRound((std::sqrt(4 * deviation * deviation + 1) - 1) / 2));
    std::vector<uchar> copy(size_t(qMax(alpha.width(), alpha.height())));
    for (int pass = 0; pass < 3; ++pass) {
        for (int y = 0; y < alpha.height(); ++y)
            averageLine(alpha.scanLine(y), alpha.width(), 1, reach, copy);
        for (int x = 0; x < alpha.width(); ++x)
            averageLine(alpha.bits() + x, alpha.height(), alpha.bytesPerLine(), reach, copy);
    }
}

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

Shadow shadowOf(const QImage& picture, qreal blur, QPointF offset, const QColor& color)
{
    const qreal ratio = picture.devicePixelRatio();
    const int margin = qCeil(blur * ratio * 1.5 / coarseness);
    const QImage opaque =
        picture.scaled(picture.size() / coarseness, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_Alpha8);
    QImage alpha(opaque.size() + QSize(2 * margin, 2 * margin), QImage::Format_Alpha8);
    alpha.fill(0);
    for (int y = 0; y < opaque.height(); ++y)
        std::copy_n(opaque.constScanLine(y), opaque.width(), alpha.scanLine(y + margin) + margin);
    soften(alpha, blur * ratio / 2 / coarseness);

    QImage image(alpha.size() * coarseness, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(image.rect(), alpha);
    painter.end();
    image.setDevicePixelRatio(ratio);
    return {image, offset - QPointF(margin, margin) * coarseness / ratio};
}
