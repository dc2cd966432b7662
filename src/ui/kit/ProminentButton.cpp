#include "ui/kit/ProminentButton.h"

#include "ui/kit/Shapes.h"
#include "ui/kit/Style.h"

#include <QPainter>

ProminentButton::ProminentButton(const QString& title, QWidget* parent) : PlainButton(parent)
{
    setFont(Style::font(Style::button));
    const int bleed = Style::focusGap + Style::focusRing;
    setContentsMargins(bleed, bleed, bleed, bleed);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setText(title);
}

QSize ProminentButton::contentSize() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * Style::buttonMargin, Style::buttonHeight};
}

ButtonShape ProminentButton::shape() const
{
    return {contentsRect(), Style::buttonCorner, Style::focusGap};
}

void ProminentButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor fill = isDown() ? Style::accentPressed()
        : isHovered()            ? Style::accentHovered()
                                 : Style::accent();
    painter.fillPath(continuousRect(contentsRect(), Style::buttonCorner), fill);
    drawFocusRing(painter);
    painter.setPen(Style::white());
    painter.drawText(contentsRect(), Qt::AlignCenter, text());
}
