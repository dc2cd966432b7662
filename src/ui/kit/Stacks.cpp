#include "ui/kit/Stacks.h"

#include "ui/kit/PlainButton.h"

#include <QBoxLayout>
#include <QStyle>

namespace {

class BleedItem : public QWidgetItem {
public:
    using QWidgetItem::QWidgetItem;

    QSize sizeHint() const override;
    QSize minimumSize() const override;
    QSize maximumSize() const override;
    int heightForWidth(int width) const override;
    int minimumHeightForWidth(int width) const override;
    void setGeometry(const QRect& rect) override;
    QRect geometry() const override;

private:
    QMargins bleed() const;
};

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

bool isVertical(const QBoxLayout& stack)
{
    return stack.direction() == QBoxLayout::TopToBottom || stack.direction() == QBoxLayout::BottomToTop;
}

bool fills(const QBoxLayout& stack, const QWidget& widget)
{
    const bool holdsOthers = widget.layout() && !qobject_cast<const QAbstractButton*>(&widget);
    const QSizePolicy policy = widget.sizePolicy();
    const QSizePolicy::Policy across =
        isVertical(stack) ? policy.horizontalPolicy() : policy.verticalPolicy();
    return (holdsOthers && across != QSizePolicy::Fixed) || across & QSizePolicy::ExpandFlag;
}

struct Adder {
    QBoxLayout& stack;
    const StackItem& item;
    Qt::Alignment align;

    void operator()(QWidget* widget) const
    {
        const bool bleeds = item.bleeds || qobject_cast<PlainButton*>(widget);
        auto* place = bleeds ? new BleedItem(widget) : new QWidgetItem(widget);
        if (!fills(stack, *widget))
            place->setAlignment(align);
        if (QWidget* parent = stack.parentWidget())
            widget->setParent(parent);
        stack.addItem(place);
        stack.setStretch(stack.count() - 1, item.stretch);
    }
    void operator()(QLayout* layout) const { stack.addLayout(layout, item.stretch); }
    void operator()(Spacer) const { stack.addStretch(1); }
    void operator()(Gap gap) const { stack.addSpacing(gap.size); }
};

template <typename Stack>
Stack* makeStack(const StackLook& look, std::initializer_list<StackItem> items, Qt::Alignment usual)
{
    auto* stack = new Stack;
    stack->setSpacing(look.spacing);
    stack->setContentsMargins(look.margins);
    append(*stack, items, look.align ? look.align : usual);
    return stack;
}

} // namespace

StackItem stretched(StackItem item, int share)
{
    item.stretch = share;
    return item;
}

StackItem bleeding(QWidget* widget)
{
    StackItem item(widget);
    item.bleeds = true;
    return item;
}

QVBoxLayout* vstack(const StackLook& look, std::initializer_list<StackItem> items)
{
    return makeStack<QVBoxLayout>(look, items, Qt::AlignLeft);
}

QHBoxLayout* hstack(const StackLook& look, std::initializer_list<StackItem> items)
{
    return makeStack<QHBoxLayout>(look, items, Qt::AlignVCenter);
}

void append(QBoxLayout& stack, std::initializer_list<StackItem> items, Qt::Alignment align)
{
    for (const StackItem& item : items)
        std::visit(Adder{stack, item, align}, item.content);
}
