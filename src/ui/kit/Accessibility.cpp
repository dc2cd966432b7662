#include "ui/kit/Accessibility.h"

#include "ui/kit/MessageSheet.h"
#include "ui/kit/SymbolButton.h"
#include "ui/kit/TextLabel.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace {

constexpr const char* decorative = "decorative";
constexpr const char* graphic = "graphic";

/// One thing, whatever is drawn inside.
class Leaf : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
};

class DecorativeNode : public Leaf {
public:
    explicit DecorativeNode(QWidget* widget) : Leaf(widget, QAccessible::NoRole) { }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invisible = true;
        return state;
    }
};

/// The focus goes where a press is, so that whoever takes it can give it back.
void press(PlainButton& button)
{
    if (MessageSheet::covers(button))
        return;
    button.setFocus(Qt::OtherFocusReason);
    button.click();
}

class ButtonNode : public Leaf {
public:
    explicit ButtonNode(PlainButton* button)
        : Leaf(button, button->isCheckable() ? QAccessible::RadioButton : QAccessible::Button)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name)
            return QAccessibleWidget::text(kind);
        return button().accessibleName().isEmpty() ? button().text() : button().accessibleName();
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const auto* symbol = qobject_cast<SymbolButton*>(object());
        state.busy = symbol && symbol->activity() == SymbolButton::Activity::Busy;
        state.checkable = button().isCheckable();
        state.checked = button().isChecked();
        state.pressed = button().isDown();
        return state;
    }

    QStringList actionNames() const override
    {
        const bool answers = button().isEnabled() && !MessageSheet::covers(button());
        return answers ? QStringList{pressAction(), setFocusAction()} : QStringList();
    }

    void doAction(const QString& name) override
    {
        if (MessageSheet::covers(button()))
            return;
        if (name != pressAction()) {
            QAccessibleWidget::doAction(name);
            return;
        }
        // Later: a press may open a panel, and the screen reader waits for the answer of this call.
        QMetaObject::invokeMethod(
            &button(), [pressed = &button()] { press(*pressed); }, Qt::QueuedConnection);
    }

private:
    PlainButton& button() const { return *static_cast<PlainButton*>(object()); }
};

class HeadingNode : public QAccessibleWidget {
public:
    explicit HeadingNode(TextLabel* label) : QAccessibleWidget(label, QAccessible::Heading) { }

    QString text(QAccessible::Text kind) const override
    {
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() ? static_cast<TextLabel*>(object())->text() : own;
    }
};

class SheetNode : public QAccessibleWidget {
public:
    explicit SheetNode(QWidget* sheet) : QAccessibleWidget(sheet, QAccessible::Dialog) { }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = true;
        return state;
    }
};

QAccessibleInterface* makeNode(const QString&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget)
        return nullptr;
    if (widget->property(decorative).toBool())
        return new DecorativeNode(widget);
    if (widget->property(graphic).toBool())
        return new QAccessibleWidget(widget, QAccessible::Graphic);
    if (auto* label = qobject_cast<TextLabel*>(widget); label && label->isHeading())
        return new HeadingNode(label);
    if (auto* button = qobject_cast<PlainButton*>(widget))
        return new ButtonNode(button);
    if (auto* sheet = qobject_cast<MessageSheet*>(widget))
        return new SheetNode(sheet);
    return nullptr;
}

} // namespace

void makeDecorative(QWidget& widget)
{
    widget.setProperty(decorative, true);
}

void makeGraphic(QWidget& widget)
{
    widget.setProperty(graphic, true);
}

void installAccessibility()
{
    QAccessible::installFactory(makeNode);
}
