#include "ui/kit/FairRow.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

FairRow::FairRow(int spacing, Qt::Alignment vertical, QWidget* parent) : QLayout(parent), m_vertical(vertical)
{
    setSpacing(spacing);
    setContentsMargins({});
}

void FairRow::append(QWidget* widget)
{
    addWidget(widget);
}

void FairRow::append(QLayout* layout)
{
    addChildLayout(layout);
    addItem(layout);
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

std::vector<FairRow::Place> FairRow::placesIn(int room) const
{
    std::vector<Place> places;
    for (const auto& item : m_items) {
        if (!item->isEmpty())
            places.push_back({item.get(), item->sizeHint().width(), 0});
    }
    room -= spacing() * (int(places.size()) - 1);

    // The common limit is the widest at which all fit; what cannot shrink so far keeps its least width.
    const auto widthAt = [](const Place& place, int limit) {
        return std::min(place.width, std::max(limit, place.item->minimumSize().width()));
    };
    const auto fits = [&](int limit) {
        int sum = 0;
        for (const Place& place : places)
            sum += widthAt(place, limit);
        return sum <= room;
    };
    int least = 0;
    int most = room;
    while (least < most) {
        const int limit = least + (most - least + 1) / 2;
        fits(limit) ? least = limit : most = limit - 1;
    }
    for (Place& place : places) {
        place.width = widthAt(place, least);
        place.height = place.item->hasHeightForWidth() ? place.item->heightForWidth(place.width)
                                                       : place.item->sizeHint().height();
    }
    return places;
}

QSize FairRow::sizeHint() const
{
    const std::vector<Place> places = placesIn(QLAYOUTSIZE_MAX);
    QSize size(spacing() * std::max(0, int(places.size()) - 1), 0);
    for (const Place& place : places)
        size = {size.width() + place.width, std::max(size.height(), place.height)};
    return size;
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
    for (const Place& place : placesIn(width))
        height = std::max(height, place.height);
    return height;
}

void FairRow::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int x = rect.x();
    for (const Place& place : placesIn(rect.width())) {
        const QRect column(x, rect.y(), place.width, rect.height());
        const QRect inside = QStyle::alignedRect(
            Qt::LeftToRight, Qt::AlignLeft | m_vertical, {place.width, place.height}, column);
        place.item->setGeometry(QStyle::visualRect(direction, rect, inside));
        x += place.width + spacing();
    }
}
