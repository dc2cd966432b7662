#include "ui/kit/FairRow.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

FairRow::FairRow(int spacing, Qt::Alignment vertical, QWidget* parent) : QLayout(parent), m_vertical(vertical)
{
    setSpacing(spacing);
    setContentsMargins({});
}

void FairRow::addItem(QLayoutItem* item)
{
    m_items.emplace_back(item);
    invalidate();
}

int FairRow::count() const
{
    return int(m_items.size());
}

QLayoutItem* FairRow::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[std::size_t(index)].get() : nullptr;
}

QLayoutItem* FairRow::takeAt(int index)
{
    if (!itemAt(index))
        return nullptr;
    QLayoutItem* const item = m_items[std::size_t(index)].release();
    m_items.erase(m_items.begin() + index);
    return item;
}

std::vector<FairRow::Row> FairRow::rowsIn(int room) const
{
    std::vector<Row> rows;
    int used = 0;
    for (const auto& item : m_items) {
        if (item->isEmpty())
            continue;
        used += spacing() + item->minimumSize().width();
        if (rows.empty() || used > room) {
            rows.emplace_back();
            used = item->minimumSize().width();
        }
        rows.back().push_back({item.get(), item->sizeHint().width(), 0});
    }
    for (Row& row : rows)
        share(row, room);
    return rows;
}

void FairRow::share(Row& row, int room) const
{
    room -= spacing() * (int(row.size()) - 1);

    // The common limit is the widest at which all fit; what cannot shrink so far keeps its least width.
    const auto widthAt = [](const Place& place, int limit) {
        return std::min(place.width, std::max(limit, place.item->minimumSize().width()));
    };
    const auto fits = [&](int limit) {
        int sum = 0;
        for (const Place& place : row)
            sum += widthAt(place, limit);
        return sum <= room;
    };
    int least = 0;
    int most = room;
    while (least < most) {
        const int limit = least + (most - least + 1) / 2;
        fits(limit) ? least = limit : most = limit - 1;
    }
    for (Place& place : row) {
        place.width = widthAt(place, least);
        place.height = place.item->hasHeightForWidth() ? place.item->heightForWidth(place.width)
                                                       : place.item->sizeHint().height();
    }
}

int FairRow::heightOf(const Row& row)
{
    return std::ranges::max_element(row, {}, &Place::height)->height;
}

QSize FairRow::sizeHint() const
{
    int width = 0;
    for (const Row& row : rowsIn(QLAYOUTSIZE_MAX)) {
        width += spacing() * (int(row.size()) - 1);
        for (const Place& place : row)
            width += place.width;
    }
    return {width, heightForWidth(QLAYOUTSIZE_MAX)};
}

QSize FairRow::minimumSize() const
{
    return {0, sizeHint().height()};
}

bool FairRow::hasHeightForWidth() const
{
    return true;
}

int FairRow::heightForWidth(int width) const
{
    int height = 0;
    for (const Row& row : rowsIn(width))
        height += (height > 0 ? spacing() : 0) + heightOf(row);
    return height;
}

void FairRow::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int y = rect.y();
    for (const Row& row : rowsIn(rect.width())) {
        const int height = heightOf(row);
        int x = rect.x();
        for (const Place& place : row) {
            const QRect inside = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignLeft | m_vertical,
                {place.width, place.height}, {x, y, place.width, height});
            place.item->setGeometry(QStyle::visualRect(direction, rect, inside));
            x += place.width + spacing();
        }
        y += height + spacing();
    }
}
