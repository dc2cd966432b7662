#include "ui/kit/Symbols.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal grid = 24;
constexpr qreal stroke = 1.7;

/// On the grid.
struct Drawing {
    QPainterPath lines;
    QPainterPath filled = {};

    Drawing& line(std::initializer_list<QPointF> points)
    {
        lines.moveTo(*points.begin());
        std::for_each(points.begin() + 1, points.end(), [this](QPointF point) { lines.lineTo(point); });
        return *this;
    }
    Drawing& circle(QPointF middle, qreal radius)
    {
        lines.addEllipse(middle, radius, radius);
        return *this;
    }
    Drawing& box(const QRectF& rect, qreal corner)
    {
        lines.addRoundedRect(rect, corner, corner);
        return *this;
    }
};

enum class Direction { Fixed, AlongText };

struct Symbol {
    QLatin1StringView name;
    Drawing (*draw)();
    Direction direction = Direction::Fixed;
};

Drawing circle()
{
    return Drawing().circle({12, 12}, 9);
}

QPainterPath star(QPointF middle, qreal reach)
{
    const qreal waist = reach * 0.2;
    QPainterPath path(middle + QPointF(0, -reach));
    path.quadTo(middle + QPointF(waist, -waist), middle + QPointF(reach, 0));
    path.quadTo(middle + QPointF(waist, waist), middle + QPointF(0, reach));
    path.quadTo(middle + QPointF(-waist, waist), middle + QPointF(-reach, 0));
    path.quadTo(middle + QPointF(-waist, -waist), middle + QPointF(0, -reach));
    return path;
}

Drawing sparkles()
{
    return {star({9.6, 9.6}, 7.2), star({18.2, 17.6}, 4.4)};
}

Drawing squareGrid()
{
    Drawing drawing;
    for (const qreal y : {3.2, 13.8})
        drawing.box({3.2, y, 7, 7}, 1.7).box({13.8, y, 7, 7}, 1.7);
    return drawing;
}

/// Lying along the x axis around the origin, its jaw to the right.
QPainterPath wrench()
{
    const QRectF head(4.4, -4.4, 8.8, 8.8);
    QPainterPath path(QPointF(-11.2, -1.7));
    path.arcTo(head, 157, -131);
    path.lineTo(9.6, -1.9);
    path.lineTo(9.6, 1.9);
    path.arcTo(head, -26, -131);
    path.lineTo(-11.2, 1.7);
    path.arcTo(QRectF(-12.9, -1.7, 3.4, 3.4), -90, -180);
    path.closeSubpath();
    return path;
}

/// Lying along the x axis under a wrench that crosses it at the origin, its blade to the left.
QPainterPath screwdriver()
{
    return Drawing()
        .line({{-1.9, 0}, {-8.6, 0}, {-10, -1.3}, {-12.6, -1.1}, {-12.6, 1.1}, {-10, 1.3}, {-8.6, 0}})
        .line({{1.9, 0}, {4, 0}})
        .box({4, -2.2, 9, 4.4}, 1.8)
        .lines;
}

Drawing tools()
{
    const QTransform middle = QTransform::fromTranslate(12, 12);
    Drawing drawing{QTransform(middle).rotate(-45).map(wrench())};
    drawing.lines.addPath(QTransform(middle).rotate(45).map(screwdriver()));
    return drawing;
}

Drawing playRectangle()
{
    Drawing drawing = Drawing().box({3, 4.8, 18, 14.4}, 2.6);
    drawing.filled.addPolygon(QPolygonF({{9.6, 8.2}, {16, 12}, {9.6, 15.8}}));
    return drawing;
}

Drawing document()
{
    QPainterPath sheet(QPointF(13.6, 3));
    sheet.lineTo(7.2, 3);
    sheet.quadTo(5.2, 3, 5.2, 5);
    sheet.lineTo(5.2, 19);
    sheet.quadTo(5.2, 21, 7.2, 21);
    sheet.lineTo(16.8, 21);
    sheet.quadTo(18.8, 21, 18.8, 19);
    sheet.lineTo(18.8, 8.2);
    sheet.closeSubpath();
    return Drawing{sheet}
        .line({{13.6, 3}, {13.6, 8.2}, {18.8, 8.2}})
        .line({{8.8, 12.6}, {15.2, 12.6}})
        .line({{8.8, 16.6}, {15.2, 16.6}});
}

Drawing checkmarkCircle()
{
    return circle().line({{8, 12.4}, {10.8, 15.2}, {16, 9.2}});
}

Drawing arrowDownCircle()
{
    return circle().line({{12, 7.4}, {12, 16.3}}).line({{8.4, 12.7}, {12, 16.3}, {15.6, 12.7}});
}

Drawing personCircle()
{
    Drawing drawing = circle().circle({12, 10.2}, 3.2);
    drawing.lines.moveTo(6.1, 18.6);
    drawing.lines.cubicTo(7.3, 15.2, 9.6, 13.9, 12, 13.9);
    drawing.lines.cubicTo(14.4, 13.9, 16.7, 15.2, 17.9, 18.6);
    return drawing;
}

Drawing arrowClockwise()
{
    const QRectF round(3.8, 4.6, 16.4, 16.4);
    Drawing drawing;
    drawing.lines.arcMoveTo(round, -4);
    drawing.lines.arcTo(round, -4, -314);
    return drawing.line({{18.1, 3}, {18.1, 7.6}, {13.5, 7.6}});
}

Drawing arrowUpRight()
{
    return Drawing().line({{6.8, 17.2}, {17.2, 6.8}}).line({{8.6, 6.8}, {17.2, 6.8}, {17.2, 15.4}});
}

Drawing magnifyingGlass()
{
    return Drawing().line({{15.6, 15.6}, {20.6, 20.6}}).circle({10.4, 10.4}, 7);
}

Drawing shippingBox()
{
    return Drawing()
        .line({{12, 2.8}, {20, 7.3}, {20, 16.7}, {12, 21.2}, {4, 16.7}, {4, 7.3}, {12, 2.8}})
        .line({{4, 7.3}, {12, 11.8}, {20, 7.3}})
        .line({{12, 11.8}, {12, 21.2}})
        .line({{8, 5.1}, {16, 9.6}});
}

Drawing chevronLeft()
{
    return Drawing().line({{14, 6}, {8, 12}, {14, 18}});
}

Drawing checkmark()
{
    return Drawing().line({{4.4, 12.8}, {9.2, 17.6}, {19, 6.8}});
}

Drawing xmark()
{
    return Drawing().line({{6, 6}, {18, 18}}).line({{18, 6}, {6, 18}});
}

constexpr std::array symbols{
    Symbol{"sparkles"_L1, sparkles},
    Symbol{"square.grid.2x2"_L1, squareGrid},
    Symbol{"wrench.and.screwdriver"_L1, tools},
    Symbol{"play.rectangle"_L1, playRectangle},
    Symbol{"doc.text"_L1, document},
    Symbol{"checkmark.circle"_L1, checkmarkCircle},
    Symbol{"arrow.down.circle"_L1, arrowDownCircle},
    Symbol{"person.crop.circle"_L1, personCircle},
    Symbol{"arrow.clockwise"_L1, arrowClockwise},
    Symbol{"arrow.up.right"_L1, arrowUpRight, Direction::AlongText},
    Symbol{"magnifyingglass"_L1, magnifyingGlass},
    Symbol{"shippingbox"_L1, shippingBox},
    Symbol{"chevron.left"_L1, chevronLeft, Direction::AlongText},
    Symbol{"checkmark"_L1, checkmark},
    Symbol{"xmark"_L1, xmark},
};

} // namespace

QStringList symbolNames()
{
    QStringList names;
    for (const Symbol& symbol : symbols)
        names.append(symbol.name);
    return names;
}

void drawSymbol(QPainter& painter, QStringView name, const QRectF& box, const QColor& color)
{
    const auto* symbol =
        std::ranges::find_if(symbols, [name](const Symbol& each) { return each.name == name; });
    Q_ASSERT_X(symbol != symbols.end(), "drawSymbol", "unknown symbol");
    if (symbol == symbols.end())
        return;

    const qreal scale = qMin(box.width(), box.height()) / grid;
    const bool mirrored =
        symbol->direction == Direction::AlongText && painter.layoutDirection() == Qt::RightToLeft;
    const Drawing drawing = symbol->draw();

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.center());
    painter.scale(mirrored ? -scale : scale, scale);
    painter.translate(-grid / 2, -grid / 2);
    painter.strokePath(drawing.lines, QPen(color, stroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(drawing.filled, color);
    painter.restore();
}
