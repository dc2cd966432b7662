// save BUNDLE DESTINATION: saves the archive of the bundle's first entry as the store does.

#include "catalog/Catalog.h"
#include "platform/BundleLayout.h"
#include "platform/desktop/DesktopPlatform.h"
#include "store/ArchiveJob.h"

#include <cstdio>

int main(int argc, char* argv[])
{
    if (argc != 3)
        return 2;
    const DesktopPlatform platform(bundle_layout::programs(argv[1]) / "PloviStore");
    const auto catalog = readCatalog(argv[1], platform.files);
    const auto outcome = catalog ? saveArchive(catalog->front(), argv[2]) : tl::unexpected(catalog.error());
    if (!outcome)
        std::fprintf(stderr, "%s\n", qUtf8Printable(outcome.error().localizedDescription));
    return outcome ? 0 : 1;
}
