#pragma once

#include "app/window/StoreWindow.h"

/// The program with its window. The one store is made with the window and kept until the process ends.
class PloviStoreMain {
public:
    /// Runs the program on this machine until the user has left it; returns the exit status of the process. A
    /// second start shows the window of the first and ends at once.
    static int run(int argc, char* argv[]);

    /// Needs a platform and an application object.
    PloviStoreMain();

    /// Shows the window and returns the exit status once it is closed and nothing is being saved or
    /// opened, whoever ends the event loop before. A failure after the window was closed brings it back until
    /// it is closed again or the message is dismissed.
    int exec();

    /// Shows the window because the user asks for it: it stays until it is closed.
    void showWindow();

    StoreWindow& window() { return m_window; }

private:
    bool isDone() const;
    void proceed();

    Store m_store;
    StoreWindow m_window;
    bool m_isBackWithFailure = false;
};
