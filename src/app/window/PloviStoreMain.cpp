#include "app/window/PloviStoreMain.h"

#include "platform/Platform.h"
#include "platform/desktop/DesktopJobs.h"
#include "platform/desktop/DesktopSavePanel.h"
#include "platform/desktop/DesktopWorkspace.h"
#include "platform/desktop/SingleInstance.h"
#include "platform/posix/PosixBundles.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixUserFolders.h"
#include "ui/kit/Style.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QPointer>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

/// The roles of this machine, installed as long as they live.
struct DesktopPlatform {
    PosixBundles bundles;
    PosixFiles files;
    PosixUserFolders userFolders;
    // Destroyed before the files, which its last work uses, and after the workspace, whose last answer comes
    // through it.
    DesktopJobs jobs;
    DesktopWorkspace workspace;
    DesktopSavePanel savePanel{&QApplication::activeWindow};
    PlatformScope scope{Platform{&bundles, &files, &userFolders, &workspace, &savePanel, &jobs}};
};

/// The program speaks Russian wherever it runs, and so do the dialogs and menus that Qt brings.
void speakRussian(QTranslator& translator)
{
    if (translator.load(u"qtbase_ru"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);
}

} // namespace

int PloviStoreMain::run(int argc, char* argv[])
{
    QPointer<StoreWindow> window;
    SingleInstance instance([&window] {
        if (window)
            window->raiseToFront();
    });
    if (instance.claim() == SingleInstance::Role::Second)
        return 0;

    // Nothing here draws with OpenGL, and setting it up would delay the window. What the store opens may want
    // it.
    const char* const drawing = "QT_XCB_GL_INTEGRATION";
    const bool isChosen = qEnvironmentVariableIsSet(drawing);
    if (!isChosen)
        qputenv(drawing, "none");
    QApplication application(argc, argv);
    if (!isChosen)
        qunsetenv(drawing);

    QApplication::setApplicationName(u"PloviStore"_s);
    QApplication::setApplicationVersion(QStringLiteral(PLOVI_VERSION));
    QApplication::setDesktopFileName(u"org.orbanel.PloviStore"_s);
    Style::applyTo(application);
    QTranslator translator;
    speakRussian(translator);
    const DesktopPlatform platform;

    PloviStoreMain program;
    window = &program.m_window;
    window->show();
    return QApplication::exec();
}

PloviStoreMain::PloviStoreMain() : m_window(m_store)
{
    // A save that still runs when the window is closed is finished first.
    QApplication::setQuitOnLastWindowClosed(false);
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, &m_window, [this] { quitWhenDone(); });
    QObject::connect(
        &m_store, &Store::objectWillChange, &m_window, [this] { quitWhenDone(); }, Qt::QueuedConnection);
    QObject::connect(
        qApp, &QGuiApplication::applicationStateChanged, &m_window, [this](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive)
                m_window.refresh();
        });
}

void PloviStoreMain::quitWhenDone()
{
    if (!m_window.isVisible() && m_store.busy->empty())
        QApplication::quit();
}
