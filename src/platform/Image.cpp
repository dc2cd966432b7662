#include "platform/Image.h"

#include "platform/image/IconSet.h"
#include "platform/image/Jpeg2000.h"
#include "platform/image/Png.h"

#include <new>

std::optional<Image> decodeImage(std::span<const std::byte> file, int edge)
try {
    if (isIconSet(file))
        return decodeIconSet(file, edge);
    if (pngSize(file))
        return decodePng(file);
    return decodeJpeg2000(file);
} catch (const std::bad_alloc&) {
    return std::nullopt;
}
