#include "app/window/StoreWindow.h"
#include "platform/BundleLayout.h"
#include "platform/desktop/DesktopPlatform.h"
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
    const DesktopPlatform platform(bundle_layout::programs(toPath(arguments[1])) / "PloviStore");
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
