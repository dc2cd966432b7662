#include "ui/kit/TextLabel.h"

#include "ui/kit/PlainToolTip.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>

namespace {

/// How much closer than the font wants the lines stand.
int tightening(const QFont& font, qreal lineHeight)
{
    const int own = qCeil(QFontMetricsF(font).lineSpacing());
    return lineHeight > 0 ? qMax(0, own - qRound(font.pixelSize() * lineHeight)) : 0;
}

} // namespace

TextLabel::TextLabel(const TextLook& look, const QString& text, QWidget* parent)
    : QLabel(parent)
    , m_look(look)
    , m_laid(Style::font(look.style), look.extra, tightening(Style::font(look.style), look.style.lineHeight))
{
    setTextFormat(Qt::PlainText);
    setWordWrap(m_look.lines == Lines::Wrapped);
    setFont(Style::font(m_look.style));
    setText(text);
}

void TextLabel::setText(const QString& text)
{
    if (text == this->text())
        return;
    m_laid.setText(m_look.lines == Lines::Wrapped ? text : withBreaks(text, u' '));
    QLabel::setText(text);
}

void TextLabel::setColor(const QColor& color)
{
    if (color == m_look.color)
        return;
    m_look.color = color;
    update();
}

int TextLabel::lineHeight() const
{
    return qCeil(QFontMetricsF(font()).lineSpacing()) - tightening(font(), m_look.style.lineHeight);
}

bool TextLabel::isCut() const
{
    return m_look.lines == Lines::One && m_laid.naturalSize().width() > width();
}

QSize TextLabel::sizeHint() const
{
    const int width = qMin(m_laid.naturalSize().width(), maximumWidth());
    return {width, m_laid.heightForWidth(m_look.lines == Lines::Wrapped ? width : QWIDGETSIZE_MAX)};
}

QSize TextLabel::minimumSizeHint() const
{
    const QSize natural = m_laid.naturalSize();
    const int few = m_look.lines == Lines::Whole ? natural.width() : 3 * font().pixelSize();
    return {qMin(natural.width(), few), natural.height()};
}

bool TextLabel::hasHeightForWidth() const
{
    return m_look.lines == Lines::Wrapped;
}

int TextLabel::heightForWidth(int width) const
{
    // Layouts also try widths that no label is ever given; breaking the text for those costs the most.
    return hasHeightForWidth()
        ? m_laid.heightForWidth(qMin(qMax(width, minimumSizeHint().width()), maximumWidth()))
        : -1;
}

bool TextLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !isCut())
        return QLabel::event(event);
    showPlainToolTip(static_cast<QHelpEvent&>(*event), text(), *this);
    return true;
}

void TextLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(m_look.color);
    const Qt::Alignment align = QStyle::visualAlignment(layoutDirection(), m_look.align);
    if (isCut()) {
        const QString shown = fontMetrics().elidedText(withBreaks(text(), u' '), Qt::ElideRight, width());
        painter.setLayoutDirection(text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
        painter.drawText(
            rect(), int(align | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine), shown);
        return;
    }
    const int content = hasHeightForWidth() ? m_laid.heightForWidth(width()) : m_laid.naturalSize().height();
    m_laid.draw(painter, QRectF(0, qMax(0, (height() - content) / 2), width(), content), align);
}
