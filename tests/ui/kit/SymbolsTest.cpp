#include "ui/kit/Symbols.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace {

QImage drawn(const QString& name, Qt::LayoutDirection direction = Qt::LeftToRight)
{
    QImage image(60, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setLayoutDirection(direction);
    drawSymbol(painter, name, {6, 6, 48, 48}, Qt::white);
    return image;
}

} // namespace

TEST(Symbols, EveryNamedDrawingIsItsOwnAndStaysInItsBox)
{
    std::set<QByteArray> pictures;
    for (const QString& name :
        {u"sparkles"_s, u"square.grid.2x2"_s, u"wrench.and.screwdriver"_s, u"play.rectangle"_s, u"doc.text"_s,
            u"checkmark.circle"_s, u"arrow.down.circle"_s, u"person.crop.circle"_s, u"arrow.clockwise"_s,
            u"arrow.up.right"_s, u"magnifyingglass"_s, u"shippingbox"_s, u"chevron.left"_s, u"checkmark"_s}) {
        SCOPED_TRACE(name.toStdString());

        QImage image = drawn(name);

        EXPECT_TRUE(
            pictures.emplace(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()).second);
        QPainter painter(&image);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.fillRect(6, 6, 48, 48, Qt::black);
        painter.end();
        QImage nothing(image.size(), image.format());
        nothing.fill(Qt::transparent);
        EXPECT_EQ(image, nothing);
        EXPECT_NE(drawn(name), nothing);
    }
}
