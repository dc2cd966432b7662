#include "ui/EmptyStateView.h"

#include "ui/kit/Stacks.h"
#include "ui/kit/Symbols.h"
#include "ui/kit/TextLabel.h"

#include <QPainter>
#include <QVBoxLayout>

EmptyStateView::EmptyStateView(QWidget* parent)
    : QWidget(parent)
    , m_title(new TextLabel({.style = Style::emptyTitle, .lines = Lines::Wrapped, .align = Qt::AlignHCenter}))
    , m_description(new TextLabel({.style = Style::emptyNote,
          .color = Style::secondaryText(),
          .lines = Lines::Wrapped,
          .align = Qt::AlignHCenter}))
{
    const int symbol = Style::emptySymbol + Style::emptySpacing;
    const QMargins margins(0, Style::emptyMargin + symbol, 0, Style::emptyMargin);
    setLayout(vstack({.spacing = Style::emptyLineSpacing, .margins = margins, .align = Qt::AlignHCenter},
        {m_title, m_description}));
}

void EmptyStateView::present(const EmptyState& state)
{
    m_symbol = state.symbol;
    m_title->setText(state.title);
    m_description->setText(state.description);
    update();
}

void EmptyStateView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRectF box(0, Style::emptyMargin, width(), Style::emptySymbol);
    drawSymbol(painter, m_symbol, box, Style::secondaryText());
}
