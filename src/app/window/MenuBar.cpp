#include "app/window/MenuBar.h"

#include "ui/Look.h"
#include "ui/kit/Style.h"

#include <QApplication>
#include <QKeyEvent>
#include <QStyleOption>

MenuBar::MenuBar(const std::function<bool(Command)>& isAvailable, QWidget* parent) : QMenuBar(parent)
{
    // A menu bar outside the window would have to be asked for over the bus before the window can be shown.
    setNativeMenuBar(false);
    QPalette colors = palette();
    colors.setColor(QPalette::Window, Look::menuBar());
    setPalette(colors);
    setFont(Style::font(Look::menu));
    for (const Menu& menu : menus()) {
        QMenu* const shown = addMenu(menu.title);
        // A menu bar takes the focus from the keyboard only, and gives it back before the command is chosen.
        connect(shown, &QMenu::aboutToShow, this, [this] { m_wasOpenedByKeyboard = hasFocus(); });
        for (const MenuItem& item : menu.items) {
            if (item.opensGroup)
                shown->addSeparator();
            QAction* const action = shown->addAction(item.title);
            action->setShortcut(item.shortcut);
            connect(action, &QAction::triggered, this,
                [this, command = item.command] { Q_EMIT chosen(command); });
            connect(shown, &QMenu::aboutToShow, action,
                [action, isAvailable, command = item.command] { action->setEnabled(isAvailable(command)); });
            // Unavailable is what the menu shows; a shortcut asks the text itself.
            connect(shown, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
        }
    }
}

void MenuBar::takeOrReturnFocus()
{
    // A menu bar remembers whom to give the focus back to only when it was taken with this key.
    for (const auto step : {QEvent::ShortcutOverride, QEvent::KeyRelease}) {
        QKeyEvent alt(step, Qt::Key_Alt, Qt::NoModifier);
        QApplication::sendEvent(window(), &alt);
    }
}

/// The program's own menu, the first one, stands out.
void MenuBar::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const
{
    QMenuBar::initStyleOption(option, action);
    option->font = Style::font(action == actions().constFirst() ? Look::menuName : Look::menu);
}
