#include "ui/CatalogPageView.h"

#include "ui/AppRowList.h"
#include "ui/EmptyStateView.h"
#include "ui/FeaturedCardView.h"
#include "ui/Look.h"
#include "ui/kit/Divider.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolView.h"
#include "ui/kit/TextLabel.h"

#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

CatalogPageView::CatalogPageView(Requests& requests, QWidget* parent)
    : PageScroll(parent)
    , m_title(new TextLabel({.style = Look::pageTitle, .lines = Lines::Wrapped, .heading = true}))
    , m_subtitle(new TextLabel(
          {.style = Look::pageSubtitle, .color = Style::secondaryText(), .lines = Lines::Wrapped}))
    , m_featured(new FeaturedCardView(requests))
    , m_empty(new EmptyStateView)
    , m_listTitle(new TextLabel({.style = Look::collectionTitle, .lines = Lines::Wrapped, .heading = true}))
    , m_rows(new AppRowList(requests))
    , m_footer(new QWidget)
    , m_footerText(new TextLabel(
          {.style = Look::footerNote, .color = Style::secondaryText(), .lines = Lines::Wrapped}))
{
    auto* const box = new SymbolView(u"shippingbox"_s, Look::noteSymbol, Style::secondaryText());
    m_footer->setLayout(vstack(
        {.spacing = Look::pageSpacing}, {new Divider, symbolBefore(box, m_footerText, Look::noteSpacing)}));
    setPage(vstack({.spacing = Look::pageSpacing},
        {
            vstack({.spacing = Look::headerSpacing}, {m_title, m_subtitle}),
            m_featured,
            m_empty,
            m_listTitle,
            bleeding(m_rows),
            m_footer,
        }));

    connect(m_rows, &AppRowList::placed, this, &CatalogPageView::showRowsInView);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &CatalogPageView::showRowsInView);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &CatalogPageView::showRowsInView);
}

void CatalogPageView::present(const CatalogPage& page)
{
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    m_title->setText(page.header.title);
    m_subtitle->setText(page.header.subtitle);

    m_featured->setVisible(page.featured.has_value());
    if (page.featured)
        m_featured->present(*page.featured);

    const auto* const empty = std::get_if<EmptyState>(&page.body);
    m_empty->setVisible(empty != nullptr);
    if (empty)
        m_empty->present(*empty);

    const auto* const list = std::get_if<AppList>(&page.body);
    m_listTitle->setVisible(list && list->title);
    m_listTitle->setText(list ? list->title.value_or(QString()) : QString());
    m_rows->present(list ? *list : AppList());
    m_rows->setVisible(list != nullptr);
    if (hadFocus && !window()->focusWidget())
        setFocus(Qt::OtherFocusReason);

    m_footer->setVisible(page.footer.has_value());
    m_footerText->setText(page.footer.value_or(QString()));
}

void CatalogPageView::showRowsInView()
{
    const int top = m_rows->mapFrom(viewport(), QPoint()).y();
    m_rows->setView(top, top + viewport()->height());
}
