#include "app/window/StoreWindow.h"

#include "app/window/Editing.h"
#include "app/window/MenuBar.h"
#include "platform/Platform.h"
#include "ui/Look.h"
#include "ui/StoreView.h"
#include "ui/kit/MessageSheet.h"
#include "ui/kit/Style.h"
#include "ui/model/WindowContent.h"

#include <QApplication>
#include <QScreen>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

/// Room for what a window manager draws around a window.
constexpr QSize frame(16, 48);

} // namespace

StoreWindow::StoreWindow(Store& store, QWidget* parent)
    : QMainWindow(parent)
    , m_view(new StoreView(store))
    , m_menuBar(new MenuBar([this](Command command) { return isAvailable(command); }))
{
    setMenuBar(m_menuBar);
    setCentralWidget(m_view);
    const QSize available = screen()->availableSize() - frame;
    resize(QSize(Look::windowWidth, Look::windowHeight).boundedTo(available));
    m_view->setMinimumSize(
        m_view->minimumSize().boundedTo(available - QSize(0, m_menuBar->sizeHint().height())));
    setWindowTitle(m_view->windowTitle());
    setWindowIcon(m_view->windowIcon());
    m_view->setFocus();

    connect(m_view, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    connect(m_menuBar, &MenuBar::chosen, this, &StoreWindow::run);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        // Opened by the keyboard, the menu bar has the focus itself until its command is done.
        if (now && now != m_menuBar)
            m_edited = now;
    });
    connect(
        new QShortcut(QKeySequence(Qt::Key_F5), this), &QShortcut::activated, this, &StoreWindow::refresh);
    connect(new QShortcut(QKeySequence(Qt::Key_F10), this), &QShortcut::activated, m_menuBar,
        &MenuBar::takeOrReturnFocus);
}

StoreWindow::~StoreWindow()
{
    disconnect(qApp, nullptr, this, nullptr); // Its children lose the focus after its members have gone.
}

bool StoreWindow::isAvailable(Command command) const
{
    switch (command) {
    case Command::Quit:
    case Command::Close:
    case Command::FullScreen:
    case Command::Minimize:
    case Command::Zoom:
        return true;
    case Command::About:
    case Command::VisitSite:
    case Command::Find:
    case Command::Refresh:
        return !MessageSheet::covers(*m_view);
    default:
        return m_edited && !MessageSheet::covers(*m_edited) && canEdit(m_edited, command);
    }
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
    if (!isAvailable(command))
        return;
    switch (command) {
    case Command::About:
        return showAbout();
    case Command::VisitSite:
        return Platform::current().workspace.openURL(u"https://orbanel.example/store"_s);
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
        return edit(m_edited, command);
    }
}

void StoreWindow::showAbout()
{
    if (!m_about)
        m_about = new MessageSheet(this);
    const Message message = about(QApplication::applicationVersion());
    m_about->present(message.title, message.text, message.button, m_menuBar->wasOpenedByKeyboard());
}
