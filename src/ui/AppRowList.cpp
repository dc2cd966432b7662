#include "ui/AppRowList.h"

#include "ui/AppRow.h"
#include "ui/Look.h"
#include "ui/kit/Style.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
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

void AppRowList::placeRows()
{
    m_tops.clear();
    int top = 0;
    for (std::size_t position = 0; position < m_list.apps.size(); ++position) {
        m_tops.push_back(top);
        const int divider = m_list.hasDivider(position) ? Look::pageSpacing + Style::hairline : 0;
        top += m_rowHeight - 2 * Style::bleed + Look::pageSpacing + divider;
    }
}

/// The last row that begins at or above `y`; the first one where none does.
std::size_t AppRowList::positionAt(int y) const
{
    const auto next = std::ranges::upper_bound(m_tops, y);
    return std::size_t(std::max<std::ptrdiff_t>(next - m_tops.begin(), 1) - 1);
}

QSize AppRowList::sizeHint() const
{
    return {0, m_tops.empty() ? 0 : m_tops.back() + m_rowHeight};
}

void AppRowList::present(const AppList& list)
{
    const bool isSame = std::exchange(m_list, list) == list;
    if (list.apps.size() > 0) {
        for (const auto& [place, row] : m_rows)
            row->present(appRow(list.apps.catalog.at(place), list.busy));
    }
    if (m_rowHeight == 0 && list.apps.size() > 0) {
        AppRow* const row = takeRow();
        row->present(appRow(list.apps[0], list.busy));
        m_rowHeight = row->sizeHint().height();
        m_spare.push_back(row);
    }
    // The window is presented anew whenever it comes to the front, and then mostly as it was.
    if (isSame)
        return;
    placeRows();
    arrange();
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
        if (auto node = m_rows.extract(m_list.apps.places[position]))
            kept.insert(std::move(node));
    }
    const auto& places = m_list.apps.places;
    for (const auto& [place, row] : m_rows) {
        const auto position =
            row->isAncestorOf(focusWidget()) ? std::ranges::find(places, place) : places.end();
        if (position != places.end()) {
            row->move(0, m_tops[std::size_t(position - places.begin())]);
            kept.emplace(place, row);
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
    const std::size_t count = m_list.apps.size();
    const std::size_t first = positionAt(m_viewTop) - std::min(positionAt(m_viewTop), rowsAround);
    const std::size_t end = std::min(count, positionAt(m_viewBottom) + 1 + rowsAround);

    m_rows = rowsToKeep(first, end);
    QWidget* before = this;
    for (std::size_t position = first; position < end; ++position) {
        auto& row = m_rows[m_list.apps.places[position]];
        if (!row) {
            row = takeRow();
            row->present(appRow(m_list.apps[position], m_list.busy));
        }
        row->setGeometry(0, m_tops[position], width(), m_rowHeight);
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
    for (const auto& [place, row] : m_rows) {
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
    const int beforeNext = Look::pageSpacing + Style::hairline - Style::bleed;
    for (std::size_t position = positionAt(event->rect().top() - m_rowHeight - beforeNext);
         position < m_list.apps.size() && m_tops[position] < event->rect().bottom(); ++position) {
        if (m_list.hasDivider(position))
            painter.fillRect(column.left(), m_tops[position] + m_rowHeight - Style::bleed + Look::pageSpacing,
                column.width(), Style::hairline, Style::divider());
    }
}
