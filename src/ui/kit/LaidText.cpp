#include "ui/kit/LaidText.h"

#include <QPainter>
#include <QWidget>

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace {

constexpr int anyWidth = QWIDGETSIZE_MAX;

} // namespace

QString withBreaks(const QString& text, QChar mark)
{
    QString marked = text;
    marked.replace("\r\n"_L1, "\n"_L1);
    for (const char16_t lineBreak : u"\n\r\u2028\u2029"sv)
        marked.replace(QChar(lineBreak), mark);
    return marked;
}

LaidText::LaidText(const QFont& font, int extra, int tightening) : m_extra(extra), m_tightening(tightening)
{
    m_layout.setFont(font);
    m_layout.setCacheEnabled(true);
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_layout.setTextOption(option);
}

void LaidText::setText(const QString& text)
{
    // The desktop's direction decides only at which side a sentence stands; it keeps its own.
    QTextOption option = m_layout.textOption();
    option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    m_layout.setTextOption(option);
    m_layout.setText(withBreaks(text, QChar::LineSeparator));
    m_width = 0;
    m_natural = {};
}

void LaidText::breakLines(int width) const
{
    if (width == m_width)
        return;
    m_width = width;
    m_height = -m_extra;
    m_layout.beginLayout();
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(width);
        line.setPosition({0, m_height + m_extra - m_tightening / 2.0});
        m_height += qCeil(line.height()) - m_tightening + m_extra;
    }
    m_layout.endLayout();
}

QSize LaidText::naturalSize() const
{
    if (!m_natural.isValid()) {
        breakLines(anyWidth);
        m_natural = {qCeil(m_layout.maximumWidth()), m_height};
    }
    return m_natural;
}

int LaidText::heightForWidth(int width) const
{
    if (width >= naturalSize().width())
        return naturalSize().height();
    breakLines(qMax(1, width));
    return m_height;
}

void LaidText::draw(QPainter& painter, const QRectF& place, Qt::Alignment align) const
{
    breakLines(int(place.width()) >= naturalSize().width() ? anyWidth : qMax(1, int(place.width())));
    for (int index = 0; index < m_layout.lineCount(); ++index) {
        const QTextLine line = m_layout.lineAt(index);
        const qreal rest = place.width() - line.naturalTextWidth();
        const qreal x = align & Qt::AlignRight ? rest : align & Qt::AlignHCenter ? rest / 2 : 0;
        line.draw(&painter, place.topLeft() + QPointF(x, 0));
    }
}
