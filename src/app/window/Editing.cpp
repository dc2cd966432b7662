#include "app/window/Editing.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTextEdit>

namespace {

bool canEditField(const QLineEdit& field, Command command)
{
    switch (command) {
    case Command::Undo:
        return field.isUndoAvailable();
    case Command::Redo:
        return field.isRedoAvailable();
    case Command::Cut:
    case Command::Copy:
    case Command::Delete:
        return field.hasSelectedText();
    case Command::Paste:
        return !QGuiApplication::clipboard()->text().isEmpty();
    default:
        return !field.text().isEmpty();
    }
}

bool canCopyFrom(const QTextEdit& text, Command command)
{
    return command == Command::Copy ? text.textCursor().hasSelection() : command == Command::SelectAll;
}

} // namespace

bool canEdit(QWidget* focused, Command command)
{
    if (const auto* const field = qobject_cast<QLineEdit*>(focused))
        return canEditField(*field, command);
    const auto* const text = qobject_cast<QTextEdit*>(focused);
    return text && canCopyFrom(*text, command);
}

void edit(QWidget* focused, Command command)
{
    static const std::map<Command, const char*> slotNames = {
        {Command::Undo, "undo"},
        {Command::Redo, "redo"},
        {Command::Cut, "cut"},
        {Command::Copy, "copy"},
        {Command::Paste, "paste"},
        {Command::SelectAll, "selectAll"},
    };
    if (!canEdit(focused, command))
        return;
    if (command == Command::Delete)
        qobject_cast<QLineEdit*>(focused)->del();
    else
        QMetaObject::invokeMethod(focused, slotNames.at(command));
}
