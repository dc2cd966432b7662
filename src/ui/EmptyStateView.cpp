#include "ui/EmptyStateView.h"

#include "ui/Look.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolView.h"
#include "ui/kit/TextLabel.h"

#include <QVBoxLayout>

EmptyStateView::EmptyStateView(QWidget* parent)
    : QWidget(parent)
    , m_symbol(new SymbolView({}, Look::emptySymbol, Style::secondaryText()))
    , m_title(new TextLabel(
          {.style = Look::emptyTitle, .lines = Lines::Wrapped, .align = Qt::AlignHCenter, .heading = true}))
    , m_description(new TextLabel({.style = Look::emptyNote,
          .color = Style::secondaryText(),
          .lines = Lines::Wrapped,
          .align = Qt::AlignHCenter}))
{
    const QMargins margins(0, Look::emptyMargin, 0, Look::emptyMargin);
    setLayout(vstack({.spacing = Look::emptyLineSpacing, .margins = margins, .align = Qt::AlignHCenter},
        {m_symbol, Gap{Look::emptySpacing - Look::emptyLineSpacing}, m_title, m_description}));
}

void EmptyStateView::present(const EmptyState& state)
{
    m_symbol->setSymbol(state.symbol);
    m_title->setText(state.title);
    m_description->setText(state.description);
}
