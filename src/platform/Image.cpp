#include "platform/Image.h"

#include "platform/image/IconSet.h"
#include "platform/image/Jpeg2000.h"
#include "platform/image/Png.h"

#include <algorithm>
#include <new>

namespace {

std::vector<Picture> picturesOf(Bytes file, int edge)
{
    if (isIconSet(file))
        return picturesIn(file, edge);
    auto picture = pngPicture(file);
    if (!picture)
        picture = jpeg2000Picture(file, edge);
    return picture ? std::vector{std::move(*picture)} : std::vector<Picture>();
}

// The sufficient ones from the smallest, then the others from the largest.
void sortByFitness(std::vector<Picture>& pictures, int edge)
{
    std::ranges::stable_sort(pictures, {}, &Picture::longerEdge);
    const auto sufficient = std::ranges::lower_bound(pictures, edge, {}, &Picture::longerEdge);
    std::reverse(pictures.begin(), sufficient);
    std::rotate(pictures.begin(), sufficient, pictures.end());
}

} // namespace

std::optional<Image> decodeImage(std::span<const std::byte> file, int edge)
try {
    std::vector<Picture> pictures = picturesOf(file, edge);
    sortByFitness(pictures, edge);

    std::int64_t left = mostPixels;
    for (const Picture& picture : pictures) {
        if (picture.pixels > left)
            continue;
        left -= picture.pixels;
        if (auto image = picture.decode())
            return image;
    }
    return std::nullopt;
} catch (const std::bad_alloc&) {
    return std::nullopt;
}
