#pragma once

#include "app/window/StoreWindow.h"

/// The program with its window. The one store is made with the window and kept until the process ends.
class PloviStoreMain {
public:
    /// Runs the program until the user has left it and nothing is being saved; returns the exit status. A
    /// second start shows the window of the first and ends at once.
    static int run(int argc, char* argv[]);

private:
    PloviStoreMain();
    void quitWhenDone();

    Store m_store;
    StoreWindow m_window;
};
