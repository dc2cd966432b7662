#include "platform/posix/BundleInfo.h"

#include "platform/BundleLayout.h"
#include "platform/posix/FileDescriptor.h"
#include "platform/posix/PropertyList.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {

// Real lists take a few kilobytes.
constexpr std::size_t largestList = std::size_t{1} << 20;

} // namespace

std::optional<BundleInfo> readBundleInfo(const Path& bundle)
{
    const auto file = openForReading(bundle_layout::infoList(bundle));
    if (!file || file->size > largestList)
        return std::nullopt;

    std::vector<std::byte> content(file->size);
    const auto size = file->descriptor.read(content);
    if (!size || *size == 0)
        return std::nullopt;

    const auto texts = propertyListTexts(
        std::span(content).first(*size), {"CFBundleIdentifier"_L1, "CFBundleExecutable"_L1});
    return texts ? std::optional(BundleInfo{texts->at(0), texts->at(1)}) : std::nullopt;
}
