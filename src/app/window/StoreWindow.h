#pragma once

#include "app/window/Menus.h"
#include "store/Store.h"

#include <QMainWindow>
#include <QPointer>

class MenuBar;
class MessageSheet;
class StoreView;

/// The one window: the menu bar above the store.
class StoreWindow : public QMainWindow {
    Q_OBJECT

public:
    /// `store` outlives the window.
    explicit StoreWindow(Store& store, QWidget* parent = nullptr);
    ~StoreWindow() override;

    /// Shows the window and asks the desktop to bring it to the front.
    void raiseToFront();
    void refresh();

private:
    bool isAvailable(Command command) const;
    void run(Command command);
    void showAbout();

    StoreView* m_view;
    MenuBar* m_menuBar;
    MessageSheet* m_about = nullptr;
    /// What the editing commands mean.
    QPointer<QWidget> m_edited;
};
