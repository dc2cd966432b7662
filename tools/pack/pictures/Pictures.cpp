#include "pack/pictures/Pictures.h"

#include "pack/files/FileAccess.h"
#include "pack/pictures/Drawing.h"
#include "platform/Image.h"

#include <QtEndian>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Representation {
    const char* type;
    int edge;
};

// The largest is shown at 160 points, so more than 512 pixels would serve no screen but cost every start.
constexpr std::array<Representation, 6> representations{{
    {"icp4", 16},
    {"icp5", 32},
    {"icp6", 64},
    {"ic07", 128},
    {"ic08", 256},
    {"ic09", 512},
}};

std::optional<Image> decoded(const QByteArray& file, int edge)
{
    return decodeImage(std::as_bytes(std::span(file)), edge);
}

std::uint32_t multiplied(std::uint32_t pixel)
{
    const std::uint32_t alpha = pixel >> 24U;
    const auto channel = [&](unsigned shift) {
        return ((pixel >> shift & 0xffU) * alpha + 127) / 255 << shift;
    };
    return alpha << 24U | channel(16) | channel(8) | channel(0);
}

/// The picture in a square of `edge` pixels.
Surface scaled(const Image& image, int edge)
{
    const int longer = std::max(image.width, image.height);
    const Surface whole = emptySurface(longer);
    const auto pixels = pixelsOf(whole);
    const int left = (longer - image.width) / 2;
    const int top = (longer - image.height) / 2;
    for (int y = 0; y < image.height; ++y) {
        const auto* const row = image.pixels.data() + std::ptrdiff_t(y) * image.width;
        std::transform(
            row, row + image.width, pixels.begin() + std::ptrdiff_t(top + y) * longer + left, multiplied);
    }
    cairo_surface_mark_dirty(whole.get());

    Surface surface = emptySurface(edge);
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(
        cairo_create(surface.get()), &cairo_destroy);
    cairo_scale(context.get(), double(edge) / longer, double(edge) / longer);
    cairo_set_source_surface(context.get(), whole.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_BEST);
    cairo_paint(context.get());
    return surface;
}

void checkPixels(const PictureFile& picture, int smallest, Square square, Findings& findings)
{
    const auto tell = [&](Code code, const QString& message, const QString& expected = {},
                          const QString& found = {}) {
        findings.push_back({code, picture.place, message, expected, found});
    };
    const auto image = decoded(picture.content, representations.back().edge);
    if (!image) {
        tell(Code::PictureUnreadable, u"this is no picture that the store reads"_s);
        return;
    }
    const QString size = u"%1 × %2"_s.arg(image->width).arg(image->height);
    if (std::ranges::adjacent_find(image->pixels, std::not_equal_to()) == image->pixels.end())
        tell(Code::PictureBlank, u"the picture shows nothing"_s);
    if (square == Square::Wanted && image->width != image->height)
        tell(Code::PictureNotSquare, u"the picture is %1 pixels, and must be square"_s.arg(size), {}, size);
    if (std::max(image->width, image->height) < smallest)
        tell(Code::PictureSmall,
            u"the picture is %1 pixels, and looks blurred below %2"_s.arg(size).arg(smallest),
            QString::number(smallest), size);
}

cairo_status_t append(void* file, const unsigned char* bytes, unsigned length)
{
    static_cast<QByteArray*>(file)->append(reinterpret_cast<const char*>(bytes), length);
    return CAIRO_STATUS_SUCCESS;
}

/// A block of the format: four letters, its whole length, its content.
QByteArray block(const char* type, const QByteArray& content)
{
    const auto length = qToBigEndian(quint32(8 + content.size()));
    return QByteArray(type).append(reinterpret_cast<const char*>(&length), sizeof length).append(content);
}

} // namespace

std::optional<PictureFile> readPicture(const Path& path, const Place& place, Findings& findings)
{
    auto content = readFile(path);
    if (content)
        return PictureFile{*std::move(content), path.extension() == ".svg", place};
    findings.push_back(
        {.code = Code::PictureMissing, .place = place, .message = content.error().localizedDescription});
    return std::nullopt;
}

void checkPicture(const PictureFile& picture, int smallest, Square square, Findings& findings)
{
    if (picture.isDrawing)
        checkDrawing(picture.content, picture.place, findings);
    else
        checkPixels(picture, smallest, square, findings);
}

QByteArray squarePng(const PictureFile& picture, int edge)
{
    const Surface surface =
        picture.isDrawing ? *drawn(picture.content, edge) : scaled(*decoded(picture.content, edge), edge);
    QByteArray file;
    cairo_surface_write_to_png_stream(surface.get(), &append, &file);
    return file;
}

QByteArray iconSet(const PictureFile& picture)
{
    if (picture.content.startsWith("icns"))
        return picture.content;
    const int largest = representations.back().edge;
    const int own = picture.isDrawing ? largest : decoded(picture.content, largest)->width;
    QByteArray entries;
    for (const auto& [type, edge] : representations) {
        if (edge <= own || edge == representations.front().edge)
            entries.append(block(type, squarePng(picture, edge)));
    }
    return block("icns", entries);
}
