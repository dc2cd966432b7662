// sample_catalog ENTRIES: writes a catalog file of so many.

#include "SampleBundle.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[])
{
    if (argc != 2)
        return 2;
    const QByteArray json = sampleCatalog(std::atoi(argv[1]));
    const auto size = std::size_t(json.size());
    return std::fwrite(json.constData(), 1, size, stdout) == size ? 0 : 1;
}
