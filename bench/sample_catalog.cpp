// sample_catalog ENTRIES: writes a catalog file of so many.

#include "SampleBundle.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[])
{
    if (argc != 2)
        return 2;
    const QByteArray json = sampleCatalog(std::atoi(argv[1]));
    return std::fwrite(json.constData(), 1, std::size_t(json.size()), stdout) == std::size_t(json.size()) ? 0
                                                                                                          : 1;
}
