#include "app/window/WindowModule.h"

#include "app/window/PloviStoreMain.h"

#include <QtGlobal>

extern "C" Q_DECL_EXPORT RunWindow runPloviStoreWindow;

int runPloviStoreWindow(int argc, char* argv[])
{
    return PloviStoreMain::run(argc, argv);
}
