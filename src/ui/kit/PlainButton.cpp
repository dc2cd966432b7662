#include "ui/kit/PlainButton.h"

#include "ui/kit/PlainToolTip.h"
#include "ui/kit/Shapes.h"
#include "ui/kit/Style.h"
#include "ui/kit/TextLabel.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QLayout>
#include <QPainter>

#include <utility>

PlainButton::PlainButton(QWidget* parent) : QAbstractButton(parent)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setContentsMargins(Style::bleed, Style::bleed, Style::bleed, Style::bleed);
}

void PlainButton::setContent(QLayout* content)
{
    setLayout(content);
    for (QWidget* part : findChildren<QWidget*>())
        part->setAttribute(Qt::WA_TransparentForMouseEvents);
}

QSize PlainButton::sizeHint() const
{
    return layout() ? QAbstractButton::sizeHint() : contentSize().grownBy(contentsMargins());
}

QSize PlainButton::minimumSizeHint() const
{
    return layout() ? QAbstractButton::minimumSizeHint() : sizeHint();
}

QSize PlainButton::contentSize() const
{
    return {};
}

bool PlainButton::showsFocus() const
{
    return m_keyboardFocus && hasFocus();
}

bool PlainButton::event(QEvent* event)
{
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove
        || event->type() == QEvent::HoverLeave) {
        const auto& hover = static_cast<QHoverEvent&>(*event);
        const bool inside = event->type() != QEvent::HoverLeave && hitButton(hover.position().toPoint());
        if (std::exchange(m_hovered, inside) != inside)
            update();
    }
    if (event->type() != QEvent::ToolTip)
        return QAbstractButton::event(event);

    const auto& help = static_cast<QHelpEvent&>(*event);
    QString text = toolTip();
    for (const auto* label : findChildren<TextLabel*>()) {
        const QRect place(label->mapTo(this, QPoint()), label->size());
        if (text.isEmpty() && label->isCut() && place.contains(help.pos()))
            text = label->text();
    }
    showPlainToolTip(help, text, *this);
    return true;
}

void PlainButton::focusInEvent(QFocusEvent* event)
{
    switch (event->reason()) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        m_keyboardFocus = true;
        break;
    case Qt::MouseFocusReason:
        m_keyboardFocus = false;
        break;
    default:
        break; // It comes back to where it was: the ring as well.
    }
    QAbstractButton::focusInEvent(event);
}

void PlainButton::hideEvent(QHideEvent* event)
{
    m_wasPressed = false;
    QAbstractButton::hideEvent(event);
}

void PlainButton::leaveEvent(QEvent* event)
{
    m_wasPressed = false;
    QAbstractButton::leaveEvent(event);
}

void PlainButton::mousePressEvent(QMouseEvent* event)
{
    m_wasPressed = true;
    QAbstractButton::mousePressEvent(event);
}

// What the first press of a double click brings up under the mouse is not meant by the second.
void PlainButton::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (m_wasPressed)
        QAbstractButton::mouseDoubleClickEvent(event);
}

void PlainButton::keyPressEvent(QKeyEvent* event)
{
    m_keyboardFocus = true;
    update();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!event->isAutoRepeat())
            click();
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
        event->ignore(); // The page behind scrolls; an abstract button would walk through its neighbours.
        break;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

ButtonShape PlainButton::shape() const
{
    const qreal ring = Style::focusRing;
    return {QRectF(rect()).adjusted(ring, ring, -ring, -ring), Style::plainCorner};
}

bool PlainButton::hitButton(const QPoint& place) const
{
    const auto [rect, corner, gap] = shape();
    return continuousRect(rect, corner).contains(QPointF(place) + QPointF(0.5, 0.5));
}

bool PlainButton::isHovered() const
{
    return m_hovered && isEnabled();
}

void PlainButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawState(painter);
}

void PlainButton::drawState(QPainter& painter) const
{
    const auto [rect, corner, gap] = shape();
    if (const auto fill = stateFill())
        painter.fillPath(continuousRect(rect, corner), *fill);
    drawFocusRing(painter);
}

std::optional<QColor> PlainButton::stateFill() const
{
    if (isDown())
        return Style::pressed();
    return isHovered() ? std::optional(Style::hover()) : std::nullopt;
}

void PlainButton::drawFocusRing(QPainter& painter) const
{
    if (!showsFocus())
        return;
    const auto [rect, corner, gap] = shape();
    const qreal middle = gap + qreal(Style::focusRing) / 2;
    const QPainterPath ring =
        continuousRect(rect.adjusted(-middle, -middle, middle, middle), corner + middle);
    painter.strokePath(ring, QPen(Style::accent(), Style::focusRing));
}
