#pragma once

#include "app/window/Menus.h"

#include <QMenuBar>

/// The window's menu bar, built from menus().
class MenuBar : public QMenuBar {
    Q_OBJECT

public:
    explicit MenuBar(QWidget* parent = nullptr);

Q_SIGNALS:
    void chosen(Command command);

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};
