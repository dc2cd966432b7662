#include "app/window/StoreWindow.h"
#include "platform/Platform.h"
#include "platform/desktop/DesktopBundles.h"
#include "platform/desktop/DesktopFileManager.h"
#include "platform/desktop/DesktopFiles.h"
#include "platform/session/DesktopWorkspace.h"
#include "ui/kit/Style.h"

#include <QApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

/// Draws the store's window into a picture without a display. QT_SCALE_FACTOR=2 draws it at twice the
/// density.
int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: plovistore-picture PloviStore.app PICTURE.png\n");
        return 2;
    }

    Style::applyTo(application);
    DesktopBundles bundles(toPath(arguments[1]) / "Contents/MacOS/PloviStore");
    DesktopFiles files;
    DesktopFileManager fileManager;
    DesktopWorkspace workspace;
    const PlatformScope platform(
        {.bundles = &bundles, .files = &files, .fileManager = &fileManager, .workspace = &workspace});
    Store store;
    StoreWindow window(store);
    window.resize(Style::windowWidth, Style::windowHeight);
    window.show();
    QCoreApplication::processEvents();

    if (!window.grab().save(arguments[2])) {
        std::fprintf(stderr, "plovistore-picture: cannot write %s\n", qPrintable(arguments[2]));
        return 1;
    }
    std::printf("%s\n", qPrintable(arguments[2]));
    return 0;
}
