#include "ui/kit/Shapes.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace {

QImage drawn(const std::function<void(QPainter&)>& draw)
{
    QImage image(120, 120, QImage::Format_RGB32);
    image.fill(QColor(30, 60, 90));
    image.setDevicePixelRatio(1.5);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(QRect(0, 0, 70, 40));
    painter.setOpacity(0.5);
    painter.translate(7, 3.25);
    draw(painter);
    painter.end();
    return image;
}

int greatestDifference(const QImage& left, const QImage& right)
{
    int greatest = 0;
    for (qsizetype byte = 0; byte < left.sizeInBytes(); ++byte)
        greatest = qMax(greatest, qAbs(left.constBits()[byte] - right.constBits()[byte]));
    return greatest;
}

} // namespace

TEST(Shapes, LookAsIfPaintedAtOnce)
{
    const QRectF box(2, 4.5, 60, 50);
    const auto draw = [&box](QPainter& painter) {
        painter.fillPath(continuousRect(box, 11), QColor(255, 255, 255, 100));
    };
    const QImage direct = drawn(draw);
    const QImage shapes = drawn([&](QPainter& painter) { drawShapes(painter, box, draw); });
    EXPECT_NE(direct, drawn([](QPainter&) {}));
    EXPECT_LE(greatestDifference(direct, shapes), 2);
}
