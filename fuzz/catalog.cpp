// Any bytes as a catalog. What is read as one is written and read again without a difference.
#include "catalog/Catalog.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const auto catalog = decodeCatalog(std::as_bytes(std::span(data, size)));
    if (!catalog)
        return 0;
    const QByteArray written = encodeCatalog(*catalog);
    const auto again = decodeCatalog(std::as_bytes(std::span(written.data(), std::size_t(written.size()))));
    if (!again || *again != *catalog)
        std::abort();
    return 0;
}
