#include "ui/StoreView.h"

#include "ui/CatalogPageView.h"
#include "ui/DetailPageView.h"
#include "ui/Sidebar.h"
#include "ui/kit/Accessibility.h"
#include "ui/kit/Divider.h"
#include "ui/kit/MessageSheet.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolButton.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

StoreView::StoreView(Store& store, QWidget* parent)
    : QWidget(parent)
    , m_store(store)
    , m_sidebar(new Sidebar)
    , m_title(new TextLabel({.style = Style::windowTitle}))
    , m_refresh(new SymbolButton(u"arrow.clockwise"_s, Style::refreshSymbol, Style::secondaryText()))
    , m_pages(new QStackedWidget)
    , m_catalog(new CatalogPageView(store))
{
    const QString help = u"Обновить список установленных приложений"_s;
    m_refresh->setToolTip(help);
    m_refresh->setAccessibleName(help);
    m_pages->addWidget(m_catalog);

    auto* const column = new QWidget;
    column->setLayout(vstack({}, {titleBar(), new Divider, stretched(m_pages)}));
    auto* const columns = new QSplitter;
    columns->setHandleWidth(Style::hairline);
    columns->setChildrenCollapsible(false);
    columns->addWidget(m_sidebar);
    columns->addWidget(column);
    // The order among siblings is the order in which a screen reader reads them.
    column->raise();
    columns->setStretchFactor(1, 1);
    makeDecorative(*columns->handle(1));
    columns->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    columns->setSizes({Style::sidebarWidth, Style::windowWidth - Style::sidebarWidth});
    setLayout(hstack({}, {stretched(columns)}));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(Style::windowMinWidth, Style::windowMinHeight);

    connect(&m_store, &Store::objectWillChange, this, &StoreView::planRebuild);
    connect(m_sidebar, &Sidebar::sectionChosen, this, &StoreView::choose);
    connect(m_sidebar, &Sidebar::searchEdited, this, &StoreView::search);
    connect(m_refresh, &QAbstractButton::clicked, this, &StoreView::refresh);
    connect(m_catalog, &CatalogPageView::opened, this, &StoreView::open);
    for (const auto& key : {QKeySequence(Qt::ALT | Qt::Key_Left), QKeySequence(Qt::Key_Back)})
        connect(new QShortcut(key, this), &QShortcut::activated, this, &StoreView::goBack);
    rebuild();
    // The search field takes the focus only when asked for; the page can be scrolled from the start.
    setFocusProxy(m_catalog);
}

QWidget* StoreView::titleBar()
{
    auto* const bar = new QWidget;
    bar->setLayout(
        hstack({.margins = {Style::pageMargin, 0, Style::pageMargin, 0}}, {stretched(m_title), m_refresh}));
    bar->setFixedHeight(Style::titleBarHeight);
    return bar;
}

/// The page of an entry costs time and memory that a start need not spend.
DetailPageView& StoreView::detailPage()
{
    if (!m_detail) {
        m_detail = new DetailPageView(m_store);
        m_pages->addWidget(m_detail);
        connect(m_detail, &DetailPageView::back, this, &StoreView::goBack);
    }
    return *m_detail;
}

void StoreView::choose(const QString& section)
{
    m_view.choose(section);
    rebuild();
    m_catalog->verticalScrollBar()->setValue(0);
}

void StoreView::search(const QString& text)
{
    if (text == m_view.search)
        return;
    m_view.search = text;
    rebuild();
    m_catalog->verticalScrollBar()->setValue(0);
}

void StoreView::open(const StoreApp& app)
{
    m_opener = focusWidget();
    m_view.selected = app;
    rebuild();
    m_detail->verticalScrollBar()->setValue(0);
    m_detail->firstStop()->setFocus();
}

void StoreView::goBack()
{
    if (m_view.selected) {
        m_view.selected.reset();
        rebuild();
        QWidget* const next = m_opener && m_opener->isVisible() ? m_opener.data() : m_catalog;
        next->setFocus(Qt::OtherFocusReason);
    } else if (!m_view.search.isEmpty()) {
        search({});
    }
}

void StoreView::refresh()
{
    m_store.revision.increment();
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
    m_sidebar->present(m_view);
    m_title->setText(m_view.title());
    setWindowTitle(m_view.title());
    showPage();
    showMessage();
}

void StoreView::showPage()
{
    if (m_view.selected) {
        detailPage().present(detail(*m_view.selected));
        m_pages->setCurrentWidget(m_detail);
    } else {
        m_catalog->present(catalog(m_view, m_store));
        m_pages->setCurrentWidget(m_catalog);
    }
}

void StoreView::showMessage()
{
    if (!isVisible())
        return;
    if (*m_store.message) {
        if (!m_sheet) {
            m_sheet = new MessageSheet(window());
            connect(m_sheet, &MessageSheet::dismissed, this, [this] { m_store.message.set({}); });
        }
        m_sheet->present(u"PloviStore"_s, **m_store.message, u"Понятно"_s);
    } else if (m_sheet) {
        m_sheet->dismiss();
    }
}

void StoreView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        goBack();
    else
        QWidget::keyPressEvent(event);
}

void StoreView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::BackButton)
        goBack();
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
