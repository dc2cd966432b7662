#include "ui/kit/SearchField.h"

#include "ui/kit/Shapes.h"
#include "ui/kit/Style.h"

#include <QMouseEvent>
#include <QPainter>

SearchField::SearchField(const QString& placeholder, QWidget* parent) : QLineEdit(parent)
{
    constexpr int lineEditMargin = 2;
    const int margin = Style::fieldMargin - lineEditMargin;
    setFrame(false);
    setTextMargins(margin, 0, margin, 0);
    setFont(Style::font(Style::field));
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    setPalette(colors);
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
}

QSize SearchField::sizeHint() const
{
    return {QLineEdit::sizeHint().width(), Style::fieldHeight};
}

QSize SearchField::minimumSizeHint() const
{
    return {QLineEdit::minimumSizeHint().width(), Style::fieldHeight};
}

void SearchField::mousePressEvent(QMouseEvent* event)
{
    // The mouse's back button means the page, wherever it is pressed.
    if (event->button() == Qt::BackButton)
        event->ignore();
    else
        QLineEdit::mousePressEvent(event);
}

void SearchField::paintEvent(QPaintEvent* event)
{
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const qreal width = hasFocus() ? Style::focusRing : Style::hairline;
        const QRectF border = QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2);
        const QPainterPath shape = continuousRect(border, Style::fieldCorner);
        painter.fillPath(continuousRect(rect(), Style::fieldCorner), Style::fieldFill());
        painter.strokePath(shape, QPen(hasFocus() ? Style::accent() : Style::fieldBorder(), width));
    }
    QLineEdit::paintEvent(event);
}
