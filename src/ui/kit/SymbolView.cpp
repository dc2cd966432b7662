#include "ui/kit/SymbolView.h"

#include "ui/kit/Accessibility.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/Symbols.h"
#include "ui/kit/TextLabel.h"

#include <QBoxLayout>
#include <QPainter>

#include <utility>

SymbolView::SymbolView(const QString& name, Style::Length size, const QColor& color, QWidget* parent)
    : QWidget(parent), m_name(name), m_size(size), m_color(color)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    makeDecorative(*this);
}

void SymbolView::setSymbol(const QString& name)
{
    if (std::exchange(m_name, name) != name)
        update();
}

void SymbolView::setColor(const QColor& color)
{
    if (std::exchange(m_color, color) != color)
        update();
}

QSize SymbolView::sizeHint() const
{
    return {m_size, m_size};
}

void SymbolView::paintEvent(QPaintEvent*)
{
    if (m_name.isEmpty())
        return;
    QPainter painter(this);
    drawSymbol(painter, m_name, rect(), m_color);
}

QHBoxLayout* symbolBefore(SymbolView* symbol, TextLabel* text, Style::Length gap)
{
    const int higher = symbol->sizeHint().height() - text->lineHeight();
    return hstack({.spacing = gap, .align = Qt::AlignTop},
        {
            vstack({.margins = {0, qMax(0, -higher / 2), 0, 0}}, {symbol, Spacer{}}),
            stretched(vstack({.margins = {0, qMax(0, higher / 2), 0, 0}}, {text, Spacer{}})),
        });
}
