#include "ui/kit/Style.h"
#include "ui/kit/Shapes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

double luminance(const QColor& color)
{
    const auto linear = [](float part) {
        return part <= 0.04045f ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor over(const QColor& top, const QColor& below)
{
    const auto mix = [&](float a, float b) { return a * top.alphaF() + b * (1 - top.alphaF()); };
    return QColor::fromRgbF(
        mix(top.redF(), below.redF()), mix(top.greenF(), below.greenF()), mix(top.blueF(), below.blueF()));
}

double contrast(const QColor& text, const QColor& below)
{
    return (luminance(over(text, below)) + 0.05) / (luminance(below) + 0.05);
}

} // namespace

TEST(Style, TextsCanBeReadOnEveryBackground)
{
    for (const QColor& background :
        {Style::windowBackground(), Style::sidebar(), Style::menuBar(), Style::dialog(),
            over(Style::fieldFill(), Style::sidebar()), over(Style::hover(), Style::windowBackground())}) {
        SCOPED_TRACE(background.name().toStdString());

        EXPECT_GE(contrast(Style::primaryText(), background), 7);
        EXPECT_GE(contrast(Style::secondaryText(), background), 4.5);
        EXPECT_GE(contrast(Style::accent(), background), 3); // the focus ring
    }
    EXPECT_GE(contrast(Style::white(), Style::accent()), 3);
    EXPECT_GE(contrast(Style::white(), Style::textSelection()), 4.5);
}

TEST(Style, FontsAreMeasuredInPixels)
{
    EXPECT_EQ(Style::font(Style::pageTitle).pixelSize(), Style::px(34));
    EXPECT_EQ(Style::font(Style::rowName).weight(), QFont::DemiBold);
}

TEST(Shapes, ACornerLeavesItsTipFreeAndItsSidesWhole)
{
    for (const qreal radius : {6, 9, 40}) {
        SCOPED_TRACE(radius);
        const QPainterPath shape = continuousRect({10, 20, 100, 30}, radius);

        EXPECT_EQ(shape.boundingRect(), QRectF(10, 20, 100, 30));
        EXPECT_FALSE(shape.contains(QPointF(10.5, 20.5)));
        EXPECT_TRUE(shape.contains(QPointF(10.5, 35)));
        EXPECT_TRUE(shape.contains(QPointF(60, 49.5)));
    }
}

TEST(Shapes, AShadowFadesFromItsPictureToNothing)
{
    QImage picture(40, 40, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::red);
    picture.setDevicePixelRatio(2);

    const Shadow shadow = shadowOf(picture, 8, {0, 6}, QColor(0, 0, 0, 77));

    const int middle = shadow.image.width() / 2;
    EXPECT_EQ(shadow.image.devicePixelRatio(), 2);
    EXPECT_EQ(shadow.position.x(), -(shadow.image.width() / 2.0 - 20) / 2);
    EXPECT_EQ(shadow.position.y(), shadow.position.x() + 6);
    EXPECT_GT(qAlpha(shadow.image.pixel(middle, middle)), 60);
    for (int x = 1; x <= middle; ++x)
        ASSERT_GE(qAlpha(shadow.image.pixel(x, middle)), qAlpha(shadow.image.pixel(x - 1, middle)));
    EXPECT_EQ(qAlpha(shadow.image.pixel(0, middle)), 0);
}
