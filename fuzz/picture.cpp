// Any bytes as a picture, at a size that the last byte chooses: a whole image or none, within the memory that
// decodeImage() promises. libFuzzer's own limits see single allocations and the whole process only.
#include "platform/Image.h"

#include <sanitizer/allocator_interface.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>

namespace {

constexpr std::ptrdiff_t promised = 64 << 20;

std::atomic<std::ptrdiff_t> allocated;
std::atomic<std::ptrdiff_t> most;

void didAllocate(const volatile void*, std::size_t size)
{
    allocated += std::ptrdiff_t(size);
    most = std::max<std::ptrdiff_t>(most, allocated);
}

void willFree(const volatile void* memory)
{
    allocated -= std::ptrdiff_t(__sanitizer_get_allocated_size(const_cast<const void*>(memory)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static const int installed = __sanitizer_install_malloc_and_free_hooks(didAllocate, willFree);
    if (installed == 0)
        std::abort();
    allocated = 0;
    most = 0;
    const auto image = decodeImage(std::as_bytes(std::span(data, size)), size > 0 ? 4 * data[size - 1] : 0);
    const bool isWhole = !image || std::ssize(image->pixels) == std::ptrdiff_t(image->width) * image->height;
    if (!isWhole || most > promised)
        std::abort();
    return 0;
}
