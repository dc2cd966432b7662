#include "ui/kit/PageScroll.h"

#include "ui/kit/Style.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QScrollBar>

using namespace Qt::StringLiterals;

PageScroll::PageScroll(QWidget* parent) : QScrollArea(parent)
{
    setFrameStyle(QFrame::NoFrame);
    setFocusPolicy(Qt::ClickFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    verticalScrollBar()->setAttribute(Qt::WA_OpaquePaintEvent, false);
    verticalScrollBar()->setAccessibleName(u"Прокрутка"_s);
    verticalScrollBar()->setSingleStep(Style::scrollStep);
    connect(qApp, &QApplication::focusChanged, this, &PageScroll::followFocus);
    floatBar();
}

PageScroll::~PageScroll()
{
    // What lies in the page loses the focus when it goes, which is later than this.
    disconnect(qApp, nullptr, this, nullptr);
}

void PageScroll::setPage(QLayout* column)
{
    auto* page = new QWidget;
    page->setLayout(column);
    setWidget(page);
    fitPage();
}

bool PageScroll::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutDirectionChange)
        floatBar();
    if (event->type() == QEvent::LayoutRequest)
        fitPage();
    return QScrollArea::event(event);
}

void PageScroll::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    fitPage();
}

void PageScroll::floatBar()
{
    const int bar = Style::scrollBar;
    setViewportMargins(isRightToLeft() ? -bar : 0, 0, isRightToLeft() ? 0 : -bar, 0);
}

void PageScroll::fitPage()
{
    if (!widget())
        return;
    QLayout& column = *widget()->layout();
    const int width = viewport()->width();
    const int beside = qMax(0, width - Style::pageMaxWidth);
    const int margin = Style::pageMargin;
    column.setContentsMargins(margin + beside / 2, margin, margin + beside - beside / 2, margin);
    const int height =
        column.hasHeightForWidth() ? column.totalHeightForWidth(width) : column.totalSizeHint().height();
    widget()->resize(width, height);
}

void PageScroll::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Home)
        verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
    else if (event->key() == Qt::Key_End)
        verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
    else
        QScrollArea::keyPressEvent(event);
}

void PageScroll::followFocus(QWidget* old, QWidget* now)
{
    // Without an old place the window has only come back; under a pressed mouse button nothing may slip away.
    const bool moved = old && now && widget() && widget()->isAncestorOf(now);
    if (moved && QApplication::mouseButtons() == Qt::NoButton)
        ensureWidgetVisible(now, 0, Style::pageMargin);
}
