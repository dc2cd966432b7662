// save BUNDLE DESTINATION: saves the archive of the bundle's first entry as a press of its button does, and
// prints the message that the window would show.

#include "platform/posix/PosixBundles.h"
#include "platform/posix/PosixFiles.h"
#include "store/Store.h"
#include "support/FakePlatform.h"

#include <cstdio>

int main(int argc, char* argv[])
{
    if (argc != 3)
        return 2;
    FakePlatform machine;
    machine.savePanel.answer = argv[2];
    PosixBundles bundles(Path(argv[1]) / "Contents/MacOS/PloviStore");
    PosixFiles files;
    const PlatformScope scope(
        {bundles, files, machine.userFolders, machine.workspace, machine.savePanel, machine.jobs});

    Store store;
    if (!store.apps->empty())
        store.save(store.apps->front());
    machine.jobs.runAll();
    std::puts(qUtf8Printable(store.message->value_or(QString())));
    return store.busy->empty() ? int(store.saved->empty()) : 3;
}
