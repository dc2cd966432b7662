#include "platform/posix/BundleInfo.h"

#include "platform/posix/FileDescriptor.h"

#include <plist/plist.h>

#include <array>
#include <memory>
#include <vector>

namespace {

// Real lists take a few kilobytes.
constexpr std::size_t largestList = std::size_t{1} << 20;

using PropertyList = std::unique_ptr<void, decltype(&plist_free)>;

PropertyList parse(std::span<const std::byte> content)
{
    plist_t root = nullptr;
    plist_from_memory(
        reinterpret_cast<const char*>(content.data()), static_cast<std::uint32_t>(content.size()), &root);
    return {root, &plist_free};
}

QString text(plist_t dictionary, const char* key)
{
    plist_t value = plist_dict_get_item(dictionary, key);
    if (!value || plist_get_node_type(value) != PLIST_STRING)
        return {};
    std::uint64_t length = 0;
    const char* characters = plist_get_string_ptr(value, &length);
    return QString::fromUtf8(characters, static_cast<qsizetype>(length));
}

} // namespace

std::optional<BundleInfo> readBundleInfo(const Path& bundle)
{
    const auto file = openForReading(bundle / "Contents" / "Info.plist");
    if (!file || file->size > largestList)
        return std::nullopt;

    std::vector<std::byte> content(file->size);
    const auto size = file->descriptor.read(content);
    if (!size || *size == 0)
        return std::nullopt;

    const PropertyList list = parse(std::span(content).first(*size));
    if (!list || plist_get_node_type(list.get()) != PLIST_DICT)
        return std::nullopt;
    return BundleInfo{text(list.get(), "CFBundleIdentifier"), text(list.get(), "CFBundleExecutable")};
}
