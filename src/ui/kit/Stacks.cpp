#include "ui/kit/Stacks.h"

#include "ui/kit/BleedItem.h"
#include "ui/kit/PlainButton.h"

#include <QBoxLayout>

namespace {

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
