// Any bytes as the ZIP archive of an application, which must not lead out of its folder nor unpack to more
// than it may.
#include "pack/checks/Application.h"
#include "pack/trees/ArchiveReading.h"

#include <algorithm>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

bool isKept(const std::pair<const std::string, TreeNode>& place)
{
    const auto& [name, node] = place;
    const Path path(name);
    return !name.empty() && path.is_relative() && path.lexically_normal() == path && *path.begin() != ".."
        && node.size >= 0 && node.head.size() <= headSize;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    // The file keeps its number, so that its path is the same for every input.
    static const int file = memfd_create("archive", MFD_CLOEXEC);
    static const Path path = "/proc/self/fd/" + std::to_string(file);
    if (ftruncate(file, 0) != 0 || pwrite(file, data, size, 0) != ssize_t(size))
        std::abort();

    Findings findings;
    const Tree tree = readArchive(path, "Probe.app", {}, findings);
    qint64 unpacked = 0;
    for (const auto& place : tree.nodes)
        unpacked += place.second.size;
    // The last block may go beyond what there is room for.
    const auto room = 1000 * std::max<qint64>(qint64(size), 1024) + (1 << 20);
    if (!std::ranges::all_of(tree.nodes, isKept) || unpacked > room || tree.infoList.size() > largestInfoList)
        std::abort();
    checkApplication(tree, {.version = u"1.0"_s, .minimum = u"13"_s}, {}, findings);
    return 0;
}
