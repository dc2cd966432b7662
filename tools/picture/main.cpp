#include "app/window/StoreWindow.h"
#include "platform/Platform.h"
#include "platform/desktop/DesktopWorkspace.h"
#include "platform/posix/PosixBundles.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixUserFolders.h"
#include "ui/Look.h"
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
    PosixBundles bundles(toPath(arguments[1]) / "Contents/MacOS/PloviStore");
    PosixFiles files;
    PosixUserFolders userFolders;
    DesktopWorkspace workspace;
    const PlatformScope platform(
        {.bundles = &bundles, .files = &files, .userFolders = &userFolders, .workspace = &workspace});
    Store store;
    StoreWindow window(store);
    window.resize(Look::windowWidth, Look::windowHeight);
    window.show();
    QCoreApplication::processEvents();

    if (!window.grab().save(arguments[2])) {
        std::fprintf(stderr, "plovistore-picture: cannot write %s\n", qPrintable(arguments[2]));
        return 1;
    }
    std::printf("%s\n", qPrintable(arguments[2]));
    return 0;
}
