// save BUNDLE DESTINATION: saves the archive of the bundle's first entry as the store does, and prints the
// most milliseconds between two turns of the event loop meanwhile.

#include "catalog/Catalog.h"
#include "platform/BundleLayout.h"
#include "platform/desktop/DesktopPlatform.h"
#include "store/ArchiveJob.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <sys/mman.h>

#include <algorithm>
#include <cstdio>

int main(int argc, char* argv[])
{
    if (argc != 3)
        return 2;
    QCoreApplication application(argc, argv);
    DesktopPlatform machine(bundle_layout::programs(argv[1]) / "PloviStore");
    const auto catalog = readCatalog(argv[1], machine.files);
    if (!catalog)
        return 1;

    machine.jobs.start([&]() -> Jobs::Task {
        return
            [outcome = saveArchive(catalog->front(), argv[2])] { QCoreApplication::exit(outcome ? 0 : 1); };
    });

    // Each turn gets memory from the system, as painting does: it may have to wait for what other threads do
    // with theirs.
    qint64 longest = 0;
    QElapsedTimer turn;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.callOnTimeout([&] {
        constexpr std::size_t page = 4096;
        void* const memory = mmap(nullptr, page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory != MAP_FAILED)
            munmap(memory, page);
        longest = std::max(longest, turn.nsecsElapsed());
        turn.start();
    });
    turn.start();
    timer.start(1);
    const int status = QCoreApplication::exec();
    std::printf("%.2f\n", double(longest) / 1e6);
    return status;
}
