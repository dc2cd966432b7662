#include "ui/AppRowList.h"

#include "ui/AppRow.h"
#include "ui/Look.h"
#include "ui/kit/Style.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

/// Rows beyond the view on either side, so that the Tab key always finds a next one.
constexpr std::size_t rowsAround = 2;

} // namespace

AppRowList::AppRowList(Requests& requests, QWidget* parent) : QWidget(parent), m_requests(requests)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setContentsMargins(Style::bleed, Style::bleed, Style::bleed, Style::bleed);
}

/// From the top of a row to that of the next, with a divider between them.
int AppRowList::pitch() const
{
    return m_rowHeight - 2 * Style::bleed + 2 * Look::pageSpacing + Style::hairline;
}

/// The list may end below the last row: then that of the row that would follow.
int AppRowList::top(std::size_t position) const
{
    const auto missing =
        std::ranges::lower_bound(m_list.withoutDivider, position) - m_list.withoutDivider.begin();
    return int(position) * pitch() - int(missing) * (Look::pageSpacing + Style::hairline);
}

/// The last row that begins at or above `y`; the first one where none does.
std::size_t AppRowList::positionAt(int y) const
{
    std::size_t position = 0;
    std::size_t end = std::max<std::size_t>(m_list.count(), 1);
    while (position + 1 < end) {
        const std::size_t middle = std::midpoint(position, end);
        (top(middle) <= y ? position : end) = middle;
    }
    return position;
}

QSize AppRowList::sizeHint() const
{
    return {0, m_list.count() == 0 ? 0 : top(m_list.count() - 1) + m_rowHeight};
}

void AppRowList::present(const AppList& list)
{
    const bool isSame = std::exchange(m_list, list) == list;
    if (m_list.count() > 0) {
        for (const auto& [app, row] : m_rows)
            row->present(appRow(*app, *m_list.store));
    }
    if (m_rowHeight == 0 && m_list.count() > 0) {
        AppRow* const row = takeRow();
        row->present(m_list.row(0));
        m_rowHeight = row->sizeHint().height();
        m_spare.push_back(row);
    }
    arrange();
    // The window is presented anew whenever it comes to the front, and then mostly as it was.
    if (isSame)
        return;
    updateGeometry();
    update();
}

void AppRowList::setView(int top, int bottom)
{
    m_viewTop = top;
    m_viewBottom = bottom;
    arrange();
}

AppRow* AppRowList::takeRow()
{
    if (!m_spare.empty()) {
        AppRow* const row = m_spare.back();
        m_spare.pop_back();
        return row;
    }
    auto* const row = new AppRow(m_requests, this);
    row->hide();
    return row;
}

/// Takes the rows that stay out of m_rows; the rest becomes spare.
AppRowList::Rows AppRowList::rowsToKeep(std::size_t first, std::size_t end)
{
    Rows kept;
    for (std::size_t position = first; position < end; ++position) {
        if (auto node = m_rows.extract(m_list.apps[position]))
            kept.insert(std::move(node));
    }
    for (const auto& [app, row] : m_rows) {
        const auto place =
            row->isAncestorOf(focusWidget()) ? std::ranges::find(m_list.apps, app) : m_list.apps.end();
        if (place != m_list.apps.end()) {
            row->move(0, top(std::size_t(place - m_list.apps.begin())));
            kept.emplace(app, row);
        } else {
            // Else Qt hands the focus on, from the last row to the search field.
            if (QWidget* const focused = window()->focusWidget(); row->isAncestorOf(focused))
                focused->clearFocus();
            row->hide();
            m_spare.push_back(row);
        }
    }
    return kept;
}

void AppRowList::arrange()
{
    const std::size_t count = m_rowHeight > 0 ? m_list.count() : 0;
    const std::size_t first = positionAt(m_viewTop) - std::min(positionAt(m_viewTop), rowsAround);
    const std::size_t end = std::min(count, positionAt(m_viewBottom) + 1 + rowsAround);

    m_rows = rowsToKeep(first, end);
    QWidget* before = this;
    for (std::size_t position = first; position < end; ++position) {
        auto& row = m_rows[m_list.apps[position]];
        if (!row) {
            row = takeRow();
            row->present(m_list.row(position));
        }
        row->setGeometry(0, top(position), width(), m_rowHeight);
        for (QWidget* stop : row->tabStops()) {
            setTabOrder(before, stop);
            before = stop;
        }
    }
    showInOrder();
}

/// The order among siblings is the order in which a screen reader reads them. Only the rows that appear are
/// moved, since moving paints.
void AppRowList::showInOrder()
{
    QWidget* next = nullptr;
    for (const auto& [app, row] : m_rows) {
        if (row->isHidden()) {
            next ? row->stackUnder(next) : row->raise();
            row->show();
        }
        next = row;
    }
}

bool AppRowList::event(QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        Q_EMIT placed();
    return QWidget::event(event);
}

void AppRowList::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRect column = contentsRect();
    for (std::size_t position = positionAt(event->rect().top() - pitch());
         position + 1 < m_list.count() && top(position) < event->rect().bottom(); ++position) {
        const int y = top(position) + m_rowHeight - Style::bleed + Look::pageSpacing;
        if (!std::ranges::binary_search(m_list.withoutDivider, position))
            painter.fillRect(column.left(), y, column.width(), Style::hairline, Style::divider());
    }
}
