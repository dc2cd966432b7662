#include "app/window/StoreWindow.h"

#include "app/window/MenuBar.h"
#include "platform/Platform.h"
#include "ui/Look.h"
#include "ui/StoreView.h"
#include "ui/kit/MessageSheet.h"
#include "ui/kit/Style.h"

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

/// Hands an editing command to the text that has the focus; any other widget has no use for it.
void edit(Command command)
{
    QWidget* const focused = QApplication::focusWidget();
    auto* const line = qobject_cast<QLineEdit*>(focused);
    if (line && command == Command::Delete) {
        line->del();
        return;
    }
    if (!line && !qobject_cast<QTextEdit*>(focused))
        return;
    static const std::map<Command, const char*> slotNames = {
        {Command::Undo, "undo"},
        {Command::Redo, "redo"},
        {Command::Cut, "cut"},
        {Command::Copy, "copy"},
        {Command::Paste, "paste"},
        {Command::SelectAll, "selectAll"},
    };
    if (const auto found = slotNames.find(command); found != slotNames.end())
        QMetaObject::invokeMethod(focused, found->second);
}

} // namespace

StoreWindow::StoreWindow(Store& store, QWidget* parent) : QMainWindow(parent), m_view(new StoreView(store))
{
    auto* const menuBar = new MenuBar;
    setMenuBar(menuBar);
    setCentralWidget(m_view);
    resize(QSize(Look::windowWidth, Look::windowHeight).boundedTo(screen()->availableSize()));
    setWindowTitle(m_view->windowTitle());
    m_view->setFocus();

    connect(m_view, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    connect(menuBar, &MenuBar::chosen, this, &StoreWindow::run);
    connect(
        new QShortcut(QKeySequence(Qt::Key_F5), this), &QShortcut::activated, this, &StoreWindow::refresh);
}

void StoreWindow::raiseToFront()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void StoreWindow::refresh()
{
    m_view->answer(request::Refresh());
}

void StoreWindow::run(Command command)
{
    switch (command) {
    case Command::About:
        return showAbout();
    case Command::VisitSite:
        return Platform::current().workspace->openURL(u"https://orbanel.example/store"_s);
    case Command::Quit:
    case Command::Close:
        close();
        return;
    case Command::Find:
        return m_view->focusSearch();
    case Command::Refresh:
        return refresh();
    case Command::FullScreen:
        return setWindowState(windowState() ^ Qt::WindowFullScreen);
    case Command::Minimize:
        return showMinimized();
    case Command::Zoom:
        return setWindowState(windowState() ^ Qt::WindowMaximized);
    default:
        return edit(command);
    }
}

void StoreWindow::showAbout()
{
    if (!m_about)
        m_about = new MessageSheet(this);
    m_about->present(u"PloviStore"_s,
        u"Магазин приложений Orbanel, версия %1. Установочные архивы уже внутри, сеть не нужна."_s.arg(
            QApplication::applicationVersion()),
        u"Понятно"_s);
}
