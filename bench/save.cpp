// save BUNDLE DESTINATION: saves the archive of the bundle's first entry as the store does.

#include "catalog/Catalog.h"
#include "platform/Platform.h"
#include "platform/posix/PosixBundles.h"
#include "platform/posix/PosixFiles.h"
#include "store/ArchiveJob.h"

#include <cstdio>

int main(int argc, char* argv[])
{
    if (argc != 3)
        return 2;
    PosixBundles bundles(Path(argv[1]) / "Contents" / "MacOS" / "PloviStore");
    PosixFiles files;
    const PlatformScope scope(Platform{.bundles = &bundles, .files = &files});
    const auto catalog = readCatalog();
    const auto outcome = catalog ? saveArchive(catalog->front(), argv[2]) : tl::unexpected(catalog.error());
    if (!outcome)
        std::fprintf(stderr, "%s\n", qUtf8Printable(outcome.error().localizedDescription));
    return outcome ? 0 : 1;
}
