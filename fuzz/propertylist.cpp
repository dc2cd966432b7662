// Any bytes as the Info.plist of a bundle.
#include "platform/posix/PropertyList.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const auto texts = propertyListTexts(
        std::as_bytes(std::span(data, size)), {"CFBundleIdentifier"_L1, "CFBundleExecutable"_L1});
    // Two texts, neither longer than what it was read from.
    if (texts && (texts->size() != 2 || std::max(texts->at(0).size(), texts->at(1).size()) > qsizetype(size)))
        std::abort();
    return 0;
}
