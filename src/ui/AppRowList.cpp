#include "ui/AppRowList.h"

#include "ui/AppRow.h"
#include "ui/kit/Style.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace {

/// Rows beyond the view on either side, so that the Tab key always finds a next one.
constexpr int rowsAround = 2;

} // namespace

AppRowList::AppRowList(Store& store, QWidget* parent) : QWidget(parent), m_store(store)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setContentsMargins(Style::bleedX, Style::bleedY, Style::bleedX, Style::bleedY);
}

int AppRowList::pitch() const
{
    return m_rowHeight - 2 * Style::bleedY + 2 * Style::pageSpacing + Style::hairline;
}

QSize AppRowList::sizeHint() const
{
    return {0, std::max(0, int(m_list.apps.size()) * pitch() - (pitch() - m_rowHeight))};
}

void AppRowList::present(const AppList& list)
{
    m_list = list;
    for (const auto& [app, row] : m_rows)
        row->present(*app);
    if (m_rowHeight == 0 && !m_list.apps.empty()) {
        AppRow* const row = takeRow();
        row->present(*m_list.apps.front());
        m_rowHeight = row->sizeHint().height();
        m_spare.push_back(row);
    }
    updateGeometry();
    arrange();
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
    auto* const row = new AppRow(m_store, this);
    row->hide();
    connect(row, &AppRow::opened, this, &AppRowList::opened);
    return row;
}

/// Takes the rows that stay out of m_rows; the rest becomes spare.
AppRowList::Rows AppRowList::rowsToKeep(std::size_t first, std::size_t end)
{
    Rows kept;
    for (std::size_t index = first; index < end; ++index) {
        if (auto node = m_rows.extract(m_list.apps[index]))
            kept.insert(std::move(node));
    }
    for (const auto& [app, row] : m_rows) {
        const auto place =
            row->isAncestorOf(focusWidget()) ? std::ranges::find(m_list.apps, app) : m_list.apps.end();
        if (place != m_list.apps.end()) {
            row->move(0, int(place - m_list.apps.begin()) * pitch());
            kept.emplace(app, row);
        } else {
            row->hide();
            m_spare.push_back(row);
        }
    }
    return kept;
}

void AppRowList::arrange()
{
    const int count = int(m_list.apps.size());
    const int top = m_rowHeight ? m_viewTop / pitch() - rowsAround : 0;
    const int bottom = m_rowHeight ? m_viewBottom / pitch() + 1 + rowsAround : 0;
    const int first = std::clamp(top, 0, count);
    const int end = std::clamp(bottom, first, count);

    m_rows = rowsToKeep(std::size_t(first), std::size_t(end));
    QWidget* before = this;
    for (int index = first; index < end; ++index) {
        const StoreApp* const app = m_list.apps[std::size_t(index)];
        auto& row = m_rows[app];
        if (!row) {
            row = takeRow();
            row->present(*app);
        }
        row->setGeometry(0, index * pitch(), width(), m_rowHeight);
        row->show();
        for (QWidget* stop : row->tabStops()) {
            setTabOrder(before, stop);
            before = stop;
        }
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
    for (std::size_t index = std::size_t(std::max(0, event->rect().top() / pitch() - 1));
         index < m_list.apps.size() && int(index) * pitch() < event->rect().bottom(); ++index) {
        const int y = int(index) * pitch() + m_rowHeight - Style::bleedY + Style::pageSpacing;
        const QRect column = contentsRect();
        if (m_list.hasDivider(index))
            painter.fillRect(column.left(), y, column.width(), Style::hairline, Style::divider());
    }
}
