#include "ui/SectionButton.h"

#include "ui/Look.h"
#include "ui/kit/Shapes.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolView.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>
#include <QPainter>

SectionButton::SectionButton(const Section& section, QWidget* parent)
    : PlainButton(parent)
    , m_symbol(new SymbolView(section.symbol, Look::sectionSymbol, Style::secondaryText()))
    , m_label(new TextLabel({.style = Look::sectionTitle}, section.title))
{
    const int x = Look::sectionMarginX;
    const int y = Look::sectionMarginY;
    setCheckable(true);
    setAccessibleName(section.title);
    setContent(
        hstack({.margins = {x, y, x, y}}, {stretched(symbolBefore(m_symbol, m_label, Look::sectionGap))}));
    // So narrow that the ring stays clear of the neighbours.
    setContentsMargins(Style::focusRing, Style::focusRing, Style::focusRing, Style::focusRing);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SectionButton::present(const SectionItem& item)
{
    setChecked(item.isChosen);
    const QColor color = isChecked() ? Style::white() : Style::secondaryText();
    m_symbol->setColor(color);
    m_label->setColor(color);
}

void SectionButton::nextCheckState() { }

ButtonShape SectionButton::shape() const
{
    return {contentsRect(), Look::sectionCorner};
}

void SectionButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked())
        painter.fillPath(continuousRect(contentsRect(), Look::sectionCorner), Look::selection());
    drawState(painter);
}
