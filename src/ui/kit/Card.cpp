#include "ui/kit/Card.h"

#include "ui/kit/Shapes.h"
#include "ui/kit/Style.h"

#include <QLinearGradient>
#include <QPainter>

Card::Card(const QColor& start, const QColor& end, QWidget* parent)
    : PlainButton(parent), m_start(start), m_end(end)
{
    const int bleed = Style::focusGap + Style::focusRing;
    setContentsMargins(bleed, bleed, bleed, bleed);
    setMinimumHeight(Style::cardMinHeight + 2 * bleed);
    QSizePolicy fill(QSizePolicy::Expanding, QSizePolicy::Fixed);
    fill.setHeightForWidth(true);
    setSizePolicy(fill);
}

void Card::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF shape = contentsRect();
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    QLinearGradient gradient(mirrored ? 1 : 0, 0, mirrored ? 0 : 1, 1);
    gradient.setCoordinateMode(QGradient::ObjectMode);
    gradient.setColorAt(0, m_start);
    gradient.setColorAt(1, m_end);
    const QPainterPath path = continuousRect(shape, Style::cardCorner);
    painter.fillPath(path, gradient);
    if (isDown() || underMouse())
        painter.fillPath(path, isDown() ? Style::pressed() : Style::hover());
    if (showsFocus()) {
        const qreal gap = Style::focusGap;
        drawFocusRing(painter, shape.adjusted(-gap, -gap, gap, gap), Style::cardCorner + gap);
    }
}
