// event_loop BUNDLE FOLDER: saves the archive of the bundle's first entry twice at the same time, and prints
// the most milliseconds between two turns of the main event loop meanwhile, and then in as long a time
// without work.

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

namespace {

/// Runs the event loop until told to quit; returns the nanoseconds of its longest turn. Each turn gets memory
/// from the system, as painting does: it may have to wait for what other threads do with theirs.
qint64 longestTurn()
{
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
    QCoreApplication::exec();
    return longest;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3)
        return 2;
    QCoreApplication application(argc, argv);
    DesktopPlatform platform(bundle_layout::programs(argv[1]) / "PloviStore");
    const auto catalog = readCatalog(argv[1], platform.files);
    if (!catalog)
        return 1;

    int running = 2;
    bool saved = true;
    QElapsedTimer whole;
    whole.start();
    for (const char* name : {"first.zip", "second.zip"}) {
        platform.jobs.start([&, place = Path(argv[2]) / name]() -> Jobs::Task {
            return [&, outcome = saveArchive(catalog->front(), place)] {
                saved = saved && outcome;
                if (--running == 0)
                    QCoreApplication::quit();
            };
        });
    }
    const qint64 busy = longestTurn();
    QTimer end;
    end.callOnTimeout(&QCoreApplication::quit);
    end.start(int(whole.elapsed()));
    const qint64 idle = longestTurn();
    std::printf("%.2f %.2f\n", double(busy) / 1e6, double(idle) / 1e6);
    return saved ? 0 : 1;
}
