#include "ui/AccessibleOutline.h"

#include "ui/kit/TextLabel.h"

#include <QAccessible>
#include <QMetaEnum>

using namespace Qt::StringLiterals;

namespace {

QString line(const QAccessibleInterface& node)
{
    const auto roles = QMetaEnum::fromType<QAccessible::Role>();
    QString text = QString::fromLatin1(roles.valueToKey(node.role()));
    if (const QString name = node.text(QAccessible::Name); !name.isEmpty())
        text += u" «"_s + name + u'»';
    if (const QString value = node.text(QAccessible::Value); !value.isEmpty())
        text += u" = "_s + value;
    const QAccessible::State state = node.state();
    if (state.checked)
        text += u" checked"_s;
    if (state.disabled)
        text += u" disabled"_s;
    if (state.busy)
        text += u" busy"_s;
    if (state.modal)
        text += u" modal"_s;
    const auto* const widget = qobject_cast<const QWidget*>(node.object());
    for (const auto* label : widget ? widget->findChildren<TextLabel*>() : QList<TextLabel*>()) {
        if (node.childCount() == 0 && label->isVisible())
            text += u" | "_s + label->text();
    }
    if (widget && !widget->toolTip().isEmpty())
        text += u" ("_s + widget->toolTip() + u')';
    return text;
}

void append(QString& outline, QAccessibleInterface* node, int depth)
{
    if (!node || !node->isValid() || node->state().invisible)
        return;
    const bool isControl = node->role() == QAccessible::Button || node->role() == QAccessible::EditableText;
    const bool onlyHolds = node->text(QAccessible::Name).isEmpty() && !isControl && node->childCount() > 0;
    if (!onlyHolds)
        outline += u"  "_s.repeated(depth) + line(*node) + u'\n';
    for (int index = 0; index < node->childCount(); ++index)
        append(outline, node->child(index), onlyHolds ? depth : depth + 1);
}

} // namespace

QString accessibleOutline(QWidget& widget)
{
    QString outline;
    append(outline, QAccessible::queryAccessibleInterface(&widget), 0);
    return outline;
}
