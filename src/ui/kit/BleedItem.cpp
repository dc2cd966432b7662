#include "ui/kit/BleedItem.h"

#include <QStyle>
#include <QWidget>

QMargins BleedItem::bleed() const
{
    return wid->contentsMargins();
}

QSize BleedItem::sizeHint() const
{
    return isEmpty() ? QSize(0, 0) : QWidgetItem::sizeHint().shrunkBy(bleed());
}

QSize BleedItem::minimumSize() const
{
    return isEmpty() ? QSize(0, 0) : QWidgetItem::minimumSize().shrunkBy(bleed());
}

QSize BleedItem::maximumSize() const
{
    return isEmpty() ? QSize(0, 0) : QWidgetItem::maximumSize().shrunkBy(bleed());
}

int BleedItem::heightForWidth(int width) const
{
    const QMargins margins = bleed();
    const int height = QWidgetItem::heightForWidth(width + margins.left() + margins.right());
    return height < 0 ? height : height - margins.top() - margins.bottom();
}

int BleedItem::minimumHeightForWidth(int width) const
{
    return heightForWidth(width);
}

void BleedItem::setGeometry(const QRect& rect)
{
    if (isEmpty())
        return;
    QSize size = rect.size().boundedTo(maximumSize());
    if (alignment() & Qt::AlignHorizontal_Mask)
        size.setWidth(qMin(size.width(), sizeHint().width()));
    if (alignment() & Qt::AlignVertical_Mask)
        size.setHeight(
            qMin(size.height(), hasHeightForWidth() ? heightForWidth(size.width()) : sizeHint().height()));
    const QRect inner = QStyle::alignedRect(wid->layoutDirection(), alignment(), size, rect);
    wid->setGeometry(inner.marginsAdded(bleed()));
}

QRect BleedItem::geometry() const
{
    return wid->geometry().marginsRemoved(bleed());
}
