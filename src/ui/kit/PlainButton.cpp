#include "ui/kit/PlainButton.h"

#include "ui/kit/PlainToolTip.h"
#include "ui/kit/Shapes.h"
#include "ui/kit/Style.h"
#include "ui/kit/TextLabel.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QLayout>
#include <QPainter>

PlainButton::PlainButton(QWidget* parent) : QAbstractButton(parent)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setContentsMargins(Style::bleedX, Style::bleedY, Style::bleedX, Style::bleedY);
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

void PlainButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal inset = Style::focusRing;
    const QRectF halo = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    if (isEnabled() && (isDown() || underMouse()))
        painter.fillPath(
            continuousRect(halo, Style::plainCorner), isDown() ? Style::pressed() : Style::hover());
    if (showsFocus())
        drawFocusRing(painter, halo, Style::plainCorner);
}

void PlainButton::drawFocusRing(QPainter& painter, const QRectF& around, qreal corner) const
{
    const qreal half = qreal(Style::focusRing) / 2;
    const QRectF ring = around.adjusted(-half, -half, half, half);
    painter.strokePath(continuousRect(ring, corner + half), QPen(Style::accent(), Style::focusRing));
}
