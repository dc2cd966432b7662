#include "ui/kit/ProminentButton.h"

#include "ui/kit/Shapes.h"
#include "ui/kit/Style.h"

#include <QFontMetrics>
#include <QPainter>

ProminentButton::ProminentButton(const QString& title, QWidget* parent) : PlainButton(parent)
{
    const int bleed = Style::focusGap + Style::focusRing;
    setContentsMargins(bleed, bleed, bleed, bleed);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFont(Style::font(Style::button));
    setText(title);
}

QSize ProminentButton::contentSize() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * Style::buttonMargin, Style::buttonHeight};
}

void ProminentButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF shape = contentsRect();
    QColor fill = isDown() ? Style::accentPressed() : underMouse() ? Style::accentHovered() : Style::accent();
    if (!isEnabled())
        fill = Style::disabledText();
    painter.fillPath(continuousRect(shape, Style::buttonCorner), fill);
    if (showsFocus()) {
        const qreal gap = Style::focusGap;
        drawFocusRing(painter, shape.adjusted(-gap, -gap, gap, gap), Style::buttonCorner + gap);
    }
    painter.setPen(Style::white());
    painter.drawText(shape, Qt::AlignCenter | Qt::TextSingleLine, text());
}
