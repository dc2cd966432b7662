#include "ui/SectionButton.h"

#include "ui/kit/Shapes.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>
#include <QPainter>

SectionButton::SectionButton(const Section& section, QWidget* parent)
    : PlainButton(parent)
    , m_label(new TextLabel({.style = Style::sectionTitle,
                                .symbol = section.symbol,
                                .symbolSize = Style::sectionSymbol,
                                .symbolGap = Style::sectionGap},
          section.title))
{
    const int x = Style::sectionMarginX;
    const int y = Style::sectionMarginY;
    setCheckable(true);
    setAccessibleName(section.title);
    setContent(hstack({.margins = {x, y, x, y}}, {stretched(m_label)}));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SectionButton::present(const SectionItem& item)
{
    setChecked(item.isChosen);
    m_label->setColor(isChecked() ? Style::white() : Style::secondaryText());
}

void SectionButton::nextCheckState() { }

void SectionButton::paintEvent(QPaintEvent* event)
{
    if (isChecked()) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillPath(continuousRect(contentsRect(), Style::sectionCorner), Style::selection());
    }
    PlainButton::paintEvent(event);
}
