#pragma once

#include "app/window/Menus.h"

#include <QMenuBar>

#include <functional>

/// The window's menu bar, built from menus().
class MenuBar : public QMenuBar {
    Q_OBJECT

public:
    /// `isAvailable` answers whether a command would do anything; it is asked whenever a menu opens.
    explicit MenuBar(const std::function<bool(Command)>& isAvailable, QWidget* parent = nullptr);

    /// The keyboard opened the menu that was opened last.
    bool wasOpenedByKeyboard() const { return m_wasOpenedByKeyboard; }
    /// What the key Alt does.
    void takeOrReturnFocus();

Q_SIGNALS:
    void chosen(Command command);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

private:
    bool m_wasOpenedByKeyboard = false;
};
