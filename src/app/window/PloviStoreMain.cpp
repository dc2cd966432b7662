#include "app/window/PloviStoreMain.h"

#include "app/window/LoadFault.h"
#include "platform/BundleLayout.h"
#include "platform/desktop/DesktopPlatform.h"
#include "platform/desktop/EndingSignals.h"
#include "platform/desktop/SingleInstance.h"
#include "ui/kit/Style.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QScopedValueRollback>
#include <QTranslator>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include <dlfcn.h>

using namespace Qt::StringLiterals;

namespace {

/// Takes the toolkit's messages while it looks for a screen. The only thing fatal then is that there is none,
/// or that its plug-in for the one that there is does not load.
void endWithoutScreen(QtMsgType type, const QMessageLogContext&, const QString&)
{
    if (type != QtFatalMsg)
        return;
    std::setlocale(LC_ALL, "C");
    std::string fault = "PloviStore: нет экрана, на котором можно показать окно.\n";
    const Path plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath).toStdString();
    for (const auto& [display, plugin] :
        {std::pair("DISPLAY", "libqxcb.so"), {"WAYLAND_DISPLAY", "libqwayland-generic.so"}}) {
        if (qEnvironmentVariableIsSet(display)
            && !dlopen((plugins / "platforms" / plugin).c_str(), RTLD_LAZY))
            fault = loadFault(dlerror());
    }
    std::fputs(fault.c_str(), stderr);
    std::_Exit(EXIT_FAILURE);
}

/// What else the toolkit has to say is for those who work on the program, not for its users.
void tellFatalOnly(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "PloviStore: %s\n", qUtf8Printable(text));
}

/// What this bundle's processes know each other by.
QString ownName()
{
    const PosixBundles bundles;
    const Path bundle = bundles.mainBundle();
    return instanceName(bundles.bundleIdentifier(bundle).value_or(QString()), bundle);
}

/// What the start of the toolkit is told where the user has not chosen; what the store opens may want it
/// otherwise.
std::vector<std::pair<const char*, QByteArray>> preferences()
{
    // Nothing here draws with OpenGL, and setting it up would delay the window.
    std::vector<std::pair<const char*, QByteArray>> all{{"QT_XCB_GL_INTEGRATION", "none"}};
    // GNOME draws no frames under Wayland, and the toolkit only with OpenGL, which a bundle with plug-ins of
    // its own does without.
    if (qgetenv("XDG_CURRENT_DESKTOP").contains("GNOME")
        && exists(PosixBundles().mainBundle() / "Contents/Frameworks/plugins"))
        all.emplace_back("QT_QPA_PLATFORM", "xcb;wayland");
    std::erase_if(all, [](const auto& each) { return qEnvironmentVariableIsSet(each.first); });
    return all;
}

/// A bundle made for machines that may lack the fonts brings them along.
void addOwnFonts(const Path& store)
{
    for (const QFileInfo& font : QDir(bundle_layout::fonts(store)).entryInfoList(QDir::Files))
        QFontDatabase::addApplicationFont(font.filePath());
}

/// The program speaks Russian wherever it runs, and so do the dialogs and menus that Qt brings.
void speakRussian(QTranslator& translator)
{
    if (translator.load(u"qtbase_ru"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);
}

} // namespace

int PloviStoreMain::run(int argc, char* argv[])
{
    PloviStoreMain* running = nullptr;
    SingleInstance instance(ownName(), [&running] {
        if (running)
            running->showWindow();
    });
    if (instance.claim() == SingleInstance::Role::Second)
        return 0;

    const auto preferred = preferences();
    for (const auto& [variable, value] : preferred)
        qputenv(variable, value);
    qInstallMessageHandler(endWithoutScreen);
    QApplication application(argc, argv);
    qInstallMessageHandler(tellFatalOnly);
    for (const auto& [variable, value] : preferred)
        qunsetenv(variable);

    QApplication::setApplicationName(u"PloviStore"_s);
    QApplication::setApplicationVersion(QStringLiteral(PLOVI_VERSION));
    QApplication::setDesktopFileName(u"org.orbanel.PloviStore"_s);
    QTranslator translator;
    speakRussian(translator);
    const DesktopPlatform platform;
    addOwnFonts(platform.bundles.mainBundle());
    Style::applyTo(application);

    PloviStoreMain program;
    const QScopedValueRollback isRunning(running, &program);
    // Closes an open save panel and the window as the user would.
    const EndingSignals signalsToEnd(&QApplication::closeAllWindows);
    return program.exec();
}

PloviStoreMain::PloviStoreMain() : m_window(m_store)
{
    QApplication::setQuitOnLastWindowClosed(false);
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, &m_window, [this] { proceed(); });
    QObject::connect(
        &m_store, &Store::objectWillChange, &m_window, [this] { proceed(); }, Qt::QueuedConnection);
    QObject::connect(
        &m_store, &Store::finished, &m_window, [this] { proceed(); }, Qt::QueuedConnection);
    QObject::connect(&m_store, &Store::failed, &m_window, [this] {
        if (m_window.isVisible())
            return;
        m_isBackWithFailure = true;
        m_window.raiseToFront();
    });
    QObject::connect(
        qApp, &QGuiApplication::applicationStateChanged, &m_window, [this](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive)
                m_window.refresh();
        });
}

int PloviStoreMain::exec()
{
    m_window.show();
    int status = 0;
    // A session that ends, ends the event loop without asking; what runs is finished all the same.
    do
        status = QApplication::exec();
    while (!isDone());
    return status;
}

void PloviStoreMain::showWindow()
{
    m_isBackWithFailure = false;
    m_window.raiseToFront();
}

bool PloviStoreMain::isDone() const
{
    return !m_window.isVisible() && !m_store.isWorking();
}

void PloviStoreMain::proceed()
{
    if (m_isBackWithFailure && !*m_store.message) {
        m_isBackWithFailure = false;
        m_window.close();
    }
    if (isDone())
        QApplication::quit();
}
