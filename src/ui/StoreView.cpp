#include "ui/StoreView.h"

#include "ui/CatalogPageView.h"
#include "ui/DetailPageView.h"
#include "ui/Look.h"
#include "ui/Sidebar.h"
#include "ui/kit/Accessibility.h"
#include "ui/kit/Divider.h"
#include "ui/kit/MessageSheet.h"
#include "ui/kit/PlainButton.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolButton.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

StoreView::StoreView(Store& store, QWidget* parent)
    : QWidget(parent)
    , m_store(store)
    , m_sidebar(new Sidebar(m_requests))
    , m_title(new TextLabel({.style = Look::windowTitle}))
    , m_refresh(new SymbolButton(u"arrow.clockwise"_s, Look::refreshSymbol, Style::secondaryText()))
    , m_pages(new QStackedWidget)
    , m_catalog(new CatalogPageView(m_requests))
{
    m_pages->addWidget(m_catalog);

    auto* const column = new QWidget;
    column->setLayout(vstack({}, {titleBar(), new Divider, stretched(m_pages)}));
    auto* const columns = new QSplitter;
    columns->setHandleWidth(0);
    columns->setChildrenCollapsible(false);
    columns->addWidget(m_sidebar);
    columns->addWidget(column);
    // The order among siblings is the order in which a screen reader reads them.
    column->raise();
    columns->setStretchFactor(1, 1);
    makeDecorative(*columns->handle(1));
    columns->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    columns->setSizes({Look::sidebarWidth, Look::windowWidth - Look::sidebarWidth});
    setLayout(hstack({}, {stretched(columns)}));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(Look::windowMinWidth, Look::windowMinHeight);

    connect(&m_store, &Store::objectWillChange, this, &StoreView::planRebuild);
    connect(&m_requests, &Requests::sent, this, &StoreView::answer);
    connect(m_refresh, &QAbstractButton::clicked, this, [this] { answer(request::Refresh()); });
    for (const auto& key : {QKeySequence(Qt::ALT | Qt::Key_Left), QKeySequence(Qt::Key_Back)})
        connect(new QShortcut(key, this), &QShortcut::activated, this, [this] { answer(request::GoBack()); });
    rebuild();
    setWindowIcon(m_sidebar->windowIcon());
    // The search field takes the focus only when asked for; the page can be scrolled from the start.
    setFocusProxy(m_catalog);
}

QWidget* StoreView::titleBar()
{
    auto* const bar = new QWidget;
    bar->setLayout(
        hstack({.margins = {Style::pageMargin, 0, Style::pageMargin, 0}}, {stretched(m_title), m_refresh}));
    bar->setFixedHeight(Look::titleBarHeight);
    return bar;
}

/// The page of an entry costs time and memory that a start need not spend.
DetailPageView& StoreView::detailPage()
{
    if (!m_detail) {
        m_detail = new DetailPageView(m_requests);
        m_pages->addWidget(m_detail);
    }
    return *m_detail;
}

void StoreView::answer(const Request& request)
{
    const bool isRefresh = std::holds_alternative<request::Refresh>(request);
    const bool isDismissal = std::holds_alternative<request::Dismiss>(request);
    if ((m_isAnswering || MessageSheet::covers(*this)) && !isRefresh && !isDismissal) {
        planRebuild(); // The search field shows its former text again.
        return;
    }
    const QScopedValueRollback answering(m_isAnswering, true);
    std::visit([this](const auto& asked) { doWhat(asked); }, request);
}

void StoreView::doWhat(const request::ChooseSection& asked)
{
    m_view.choose(asked.title);
    rebuild();
    m_catalog->verticalScrollBar()->setValue(0);
}

void StoreView::doWhat(const request::Search& asked)
{
    m_view.search = asked.text;
    rebuild();
    m_catalog->verticalScrollBar()->setValue(0);
}

void StoreView::doWhat(const request::Open& asked)
{
    m_opener = focusWidget();
    const auto* const opener = qobject_cast<const PlainButton*>(m_opener);
    const auto reason = opener && opener->showsFocus() ? Qt::TabFocusReason : Qt::MouseFocusReason;
    m_view.selected = asked.app;
    dropFocus();
    rebuild();
    m_detail->verticalScrollBar()->setValue(0);
    m_detail->firstStop()->setFocus(reason);
}

void StoreView::doWhat(const request::GoBack&)
{
    if (!m_view.selected)
        return;
    m_view.selected.reset();
    dropFocus();
    rebuild();
    QWidget* const next = m_opener && m_opener->isVisible() ? m_opener.data() : m_catalog;
    next->setFocus(Qt::OtherFocusReason);
}

/// Else the page that appears would hand the focus to its first control, and scroll there.
void StoreView::dropFocus()
{
    if (QWidget* const focused = focusWidget())
        focused->clearFocus();
}

void StoreView::doWhat(const request::Launch& asked)
{
    m_store.launch(asked.app);
}

void StoreView::doWhat(const request::Save& asked)
{
    m_store.save(asked.app);
}

void StoreView::doWhat(const request::Refresh&)
{
    m_store.revision.increment();
}

void StoreView::doWhat(const request::Dismiss&)
{
    m_store.message.set({});
}

void StoreView::focusSearch()
{
    m_sidebar->focusSearch();
}

/// The store announces a change before it happens, and often several in a row: one rebuild follows when all
/// are done.
void StoreView::planRebuild()
{
    if (std::exchange(m_rebuildPlanned, true))
        return;
    QMetaObject::invokeMethod(this, &StoreView::rebuild, Qt::QueuedConnection);
}

void StoreView::rebuild()
{
    m_rebuildPlanned = false;
    const WindowContent content = windowContent(m_view, m_store);
    setWindowTitle(content.title);
    m_title->setText(content.title);
    m_refresh->setToolTip(content.refreshHelp);
    m_refresh->setAccessibleName(content.refreshHelp);
    m_sidebar->present(content.sidebar);
    std::visit([this](const auto& page) { present(page); }, content.page);
    if (isVisible())
        present(content.message);
}

void StoreView::present(const CatalogPage& page)
{
    m_catalog->present(page);
    m_pages->setCurrentWidget(m_catalog);
}

void StoreView::present(const DetailPage& page)
{
    detailPage().present(page);
    m_pages->setCurrentWidget(m_detail);
}

void StoreView::present(const std::optional<Message>& message)
{
    if (message) {
        if (!m_sheet) {
            m_sheet = new MessageSheet(window());
            connect(m_sheet, &MessageSheet::dismissed, this, [this] {
                // What had the focus before has gone.
                if (!window()->focusWidget())
                    m_pages->currentWidget()->setFocus(Qt::OtherFocusReason);
                answer(request::Dismiss());
            });
        }
        m_sheet->present(message->title, message->text, message->button);
    } else if (m_sheet) {
        m_sheet->dismiss();
    }
}

void StoreView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        answer(request::GoBack());
    else
        QWidget::keyPressEvent(event);
}

void StoreView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::BackButton)
        answer(request::GoBack());
    else
        QWidget::mousePressEvent(event);
}

/// A message set before the window existed is shown with it.
void StoreView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (*m_store.message)
        planRebuild();
}
