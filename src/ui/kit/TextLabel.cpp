#include "ui/kit/TextLabel.h"

#include "ui/kit/Accessibility.h"
#include "ui/kit/PlainToolTip.h"
#include "ui/kit/Symbols.h"
#include "ui/kit/TextLines.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

#include <utility>

namespace {

constexpr qreal roundedLine = 1.2; // Rounded families differ much in their own line heights.
constexpr QChar ellipsis(0x2026);

} // namespace

TextLabel::TextLabel(TextLook look, const QString& text, QWidget* parent)
    : QLabel(parent), m_look(std::move(look))
{
    setTextFormat(Qt::PlainText);
    setWordWrap(m_look.lines == Lines::Wrapped);
    setFont(Style::font(m_look.style));
    if (m_look.maxWidth > 0)
        setMaximumWidth(m_look.maxWidth);
    if (text.isEmpty() && !m_look.symbol.isEmpty())
        makeDecorative(*this);
    setText(text);
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
    const int own = fontMetrics().height();
    const bool rounded = m_look.style.design == Style::Design::Rounded;
    return rounded ? qMin(own, qRound(font().pixelSize() * roundedLine)) : own;
}

int TextLabel::symbolSize() const
{
    if (m_look.symbol.isEmpty())
        return 0;
    return m_look.symbolSize > 0 ? int(m_look.symbolSize) : qRound(font().pixelSize() * Style::symbolPerFont);
}

int TextLabel::indentOfText() const
{
    return symbolSize() + (m_look.symbol.isEmpty() || text().isEmpty() ? 0 : int(m_look.symbolGap));
}

int TextLabel::heightOf(int lineCount) const
{
    const bool onlySymbol = text().isEmpty() && !m_look.symbol.isEmpty();
    const int lines = onlySymbol ? 0 : lineCount * lineHeight() + (lineCount - 1) * m_look.extra;
    return qMax(lines, symbolSize());
}

QSize TextLabel::natural() const
{
    if (m_natural.isValid() && m_measuredText == text())
        return m_natural;

    const QFontMetricsF metrics(font());
    qreal width = 0;
    int count = 1;
    if (m_look.lines == Lines::One) {
        width = metrics.horizontalAdvance(text());
    } else {
        QTextLayout layout(withLineSeparators(text()), font());
        count = qMax(1, breakLines(layout, QWIDGETSIZE_MAX, 0, 0));
        width = layout.maximumWidth();
    }
    m_measuredText = text();
    m_natural = {indentOfText() + qCeil(width), heightOf(count)};
    return m_natural;
}

int TextLabel::firstBaseline() const
{
    const QFontMetrics metrics = fontMetrics();
    const int above = qMax(0, symbolSize() - lineHeight()) / 2;
    return above + (lineHeight() - metrics.height()) / 2 + metrics.ascent();
}

bool TextLabel::isCut() const
{
    return m_look.lines == Lines::One && natural().width() > width();
}

QSize TextLabel::sizeHint() const
{
    const int width = qMin(natural().width(), maximumWidth());
    return {width, hasHeightForWidth() ? heightForWidth(width) : natural().height()};
}

QSize TextLabel::minimumSizeHint() const
{
    const int few = indentOfText() + fontMetrics().horizontalAdvance(ellipsis) * 3;
    return {qMin(natural().width(), few), natural().height()};
}

bool TextLabel::hasHeightForWidth() const
{
    return m_look.lines == Lines::Wrapped;
}

int TextLabel::heightForWidth(int width) const
{
    if (!hasHeightForWidth())
        return -1;
    const int available = qMin(width, maximumWidth());
    if (available >= natural().width())
        return natural().height();
    return heightOf(countLines(text(), font(), qMax(1, available - indentOfText())));
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
    const int used = m_look.align & Qt::AlignLeft ? width() : qMin(width(), natural().width());
    const int content = hasHeightForWidth() ? heightForWidth(width()) : natural().height();
    const QRect place = QStyle::alignedRect(
        layoutDirection(), m_look.align | Qt::AlignVCenter, QSize(used, qMin(content, height())), rect());

    if (!m_look.symbol.isEmpty()) {
        const int size = symbolSize();
        const int firstLine = text().isEmpty() ? size : qMax(size, lineHeight());
        const QRect box(place.x(), place.y() + (firstLine - size) / 2, size, size);
        drawSymbol(painter, m_look.symbol, QStyle::visualRect(layoutDirection(), place, box), m_look.color);
    }
    const int above = qMax(0, symbolSize() - lineHeight()) / 2;
    paintText(
        painter, QStyle::visualRect(layoutDirection(), place, place.adjusted(indentOfText(), above, 0, 0)));
}

void TextLabel::paintText(QPainter& painter, const QRectF& place) const
{
    // A sentence keeps its own direction; the desktop's decides only at which side it stands.
    const Qt::LayoutDirection direction = text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    painter.setPen(m_look.color);
    painter.setLayoutDirection(direction);
    const Qt::Alignment align = QStyle::visualAlignment(layoutDirection(), m_look.align) | Qt::AlignAbsolute;
    if (m_look.lines == Lines::One) {
        const QString shown =
            isCut() ? fontMetrics().elidedText(text(), Qt::ElideRight, int(place.width())) : text();
        const QRectF line(place.x(), place.y(), place.width(), lineHeight());
        painter.drawText(line, int(align | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip), shown);
        return;
    }
    QTextLayout layout(withLineSeparators(text()), font());
    QTextOption option(align);
    option.setTextDirection(direction);
    layout.setTextOption(option);
    breakLines(layout, place.width(), lineHeight(), lineHeight() + m_look.extra);
    layout.draw(&painter, place.topLeft());
}
