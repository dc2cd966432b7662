#include "pack/pictures/Pictures.h"

#include "pack/files/FileAccess.h"
#include "platform/Image.h"

#include <QXmlStreamReader>
#include <QtEndian>

#include <cairo.h>
#include <librsvg/rsvg.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The edge at which a drawing is looked at.
constexpr int sampleEdge = 64;

struct Representation {
    std::string_view type;
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

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

Surface emptySurface(int width, int height)
{
    return {cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height), &cairo_surface_destroy};
}

struct ObjectDeleter {
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
};

/// Draws an SVG file, which has no address: nothing outside of it can be read. None when it is no drawing.
std::optional<Surface> drawn(const QByteArray& svg, int edge)
{
    const std::unique_ptr<RsvgHandle, ObjectDeleter> handle(rsvg_handle_new_from_data(
        reinterpret_cast<const guint8*>(svg.constData()), gsize(svg.size()), nullptr));
    if (!handle)
        return std::nullopt;
    Surface surface = emptySurface(edge, edge);
    const Context context(cairo_create(surface.get()), &cairo_destroy);
    const RsvgRectangle square{0, 0, double(edge), double(edge)};
    if (!rsvg_handle_render_document(handle.get(), context.get(), &square, nullptr))
        return std::nullopt;
    return surface;
}

std::uint32_t multiplied(std::uint32_t pixel)
{
    const std::uint32_t alpha = pixel >> 24U;
    const auto channel = [&](unsigned shift) {
        return ((pixel >> shift & 0xffU) * alpha + 127) / 255 << shift;
    };
    return alpha << 24U | channel(16) | channel(8) | channel(0);
}

/// The four bytes of a pixel in a PNG file, which has no alpha multiplied in.
std::array<png_byte, 4> divided(std::uint32_t pixel)
{
    const std::uint32_t alpha = pixel >> 24U;
    const auto channel = [&](unsigned shift) {
        return png_byte(alpha == 0 ? 0 : ((pixel >> shift & 0xffU) * 255 + alpha / 2) / alpha);
    };
    return {channel(16), channel(8), channel(0), png_byte(alpha)};
}

/// The pixels in a square of their own longer edge.
Surface painted(const Image& image)
{
    const int edge = std::max(image.width, image.height);
    Surface surface = emptySurface(edge, edge);
    auto* const bytes = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    const int left = (edge - image.width) / 2;
    const int top = (edge - image.height) / 2;
    for (int y = 0; y < image.height; ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(bytes + std::ptrdiff_t(top + y) * stride) + left;
        const auto* const pixels = image.pixels.data() + std::ptrdiff_t(y) * image.width;
        std::transform(pixels, pixels + image.width, row, multiplied);
    }
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

Surface scaled(const Surface& source, int edge)
{
    Surface surface = emptySurface(edge, edge);
    const Context context(cairo_create(surface.get()), &cairo_destroy);
    const double scale = double(edge) / cairo_image_surface_get_width(source.get());
    cairo_scale(context.get(), scale, scale);
    cairo_set_source_surface(context.get(), source.get(), 0, 0);
    cairo_pattern_set_filter(cairo_get_source(context.get()), CAIRO_FILTER_BEST);
    cairo_paint(context.get());
    return surface;
}

void append(png_structp writer, png_bytep bytes, std::size_t length)
{
    static_cast<QByteArray*>(png_get_io_ptr(writer))
        ->append(reinterpret_cast<const char*>(bytes), qsizetype(length));
}

QByteArray asPng(const Surface& surface)
{
    const auto width = std::size_t(cairo_image_surface_get_width(surface.get()));
    const int height = cairo_image_surface_get_height(surface.get());
    QByteArray file;
    png_structp writer = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(writer);
    png_set_write_fn(writer, &file, &append, nullptr);
    png_set_IHDR(writer, info, png_uint_32(width), png_uint_32(height), 8, PNG_COLOR_TYPE_RGB_ALPHA,
        PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    // Undoing the other filters takes the store as long as unpacking, and they save next to nothing.
    png_set_filter(writer, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE | PNG_FILTER_SUB | PNG_FILTER_UP);
    png_set_compression_level(writer, 9);
    png_write_info(writer, info);

    const auto* const bytes = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    std::vector<std::array<png_byte, 4>> line(width);
    for (int y = 0; y < height; ++y) {
        const auto* const row = reinterpret_cast<const std::uint32_t*>(bytes + std::ptrdiff_t(y) * stride);
        std::transform(row, row + width, line.begin(), divided);
        png_write_row(writer, line.front().data());
    }
    png_write_end(writer, info);
    png_destroy_write_struct(&writer, &info);
    return file;
}

std::optional<Image> decoded(const QByteArray& file, int edge)
{
    return decodeImage(std::as_bytes(std::span(file)), edge);
}

/// Whether all pixels are alike, as those of an empty drawing are.
bool isBlank(const Surface& surface)
{
    const auto* const bytes = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    const int width = cairo_image_surface_get_width(surface.get());
    const auto first = *reinterpret_cast<const std::uint32_t*>(bytes);
    for (int y = 0; y < cairo_image_surface_get_height(surface.get()); ++y) {
        const auto* const row = reinterpret_cast<const std::uint32_t*>(bytes + std::ptrdiff_t(y) * stride);
        if (std::any_of(row, row + width, [first](std::uint32_t pixel) { return pixel != first; }))
            return false;
    }
    return true;
}

bool isReference(QStringView attribute)
{
    return attribute == u"href" || attribute == u"src";
}

/// What a text of a style or an attribute refers to outside of the drawing; null for nothing.
QString outsideOf(const QString& style)
{
    if (style.contains("@import"_L1))
        return u"@import"_s;
    for (qsizetype place = style.indexOf("url("_L1); place >= 0;
         place = style.indexOf("url("_L1, place + 1)) {
        QString target = style.sliced(place + 4).section(u')', 0, 0).trimmed();
        target.remove(u'"').remove(u'\'');
        if (!target.startsWith(u'#') && !target.startsWith("data:"_L1))
            return target;
    }
    return {};
}

/// What a drawing has that it must not have.
struct DrawingFaults {
    bool isSound = true;
    int textLine = 0;
    int outsideLine = 0;
    QString outside;
};

DrawingFaults faultsOf(const QByteArray& svg)
{
    DrawingFaults faults;
    QXmlStreamReader xml(svg);
    const auto refersTo = [&](const QString& target) {
        if (target.isNull() || faults.outsideLine > 0)
            return;
        faults.outsideLine = int(xml.lineNumber());
        faults.outside = target;
    };
    bool isStyle = false;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            isStyle = xml.name() == "style"_L1;
            if (xml.name() == "text"_L1 && faults.textLine == 0)
                faults.textLine = int(xml.lineNumber());
            for (const QXmlStreamAttribute& attribute : xml.attributes()) {
                const QString value = attribute.value().trimmed().toString();
                if (!isReference(attribute.name()))
                    refersTo(outsideOf(value));
                else if (xml.name() != "a"_L1 && !value.startsWith(u'#') && !value.startsWith("data:"_L1))
                    refersTo(value);
            }
            break;
        case QXmlStreamReader::Characters:
            if (isStyle)
                refersTo(outsideOf(xml.text().toString()));
            break;
        case QXmlStreamReader::ProcessingInstruction:
            if (xml.processingInstructionTarget() == "xml-stylesheet"_L1)
                refersTo(u"xml-stylesheet"_s);
            break;
        default:
            break;
        }
    }
    faults.isSound = !xml.hasError();
    return faults;
}

void checkDrawing(const PictureFile& picture, Findings& findings)
{
    const DrawingFaults faults = faultsOf(picture.content);
    const auto surface = faults.isSound ? drawn(picture.content, sampleEdge) : std::nullopt;
    const auto at = [&](int line) { return Place{picture.place.file, line, picture.place.entry}; };
    if (!surface) {
        findings.push_back({Code::PictureUnreadable, picture.place, u"this is no SVG drawing"_s, {}, {}});
        return;
    }
    if (faults.textLine > 0)
        findings.push_back({Code::PictureText, at(faults.textLine),
            u"the drawing has a text, which looks as each machine's fonts want; make it a path"_s, {}, {}});
    if (faults.outsideLine > 0)
        findings.push_back({Code::PictureExternal, at(faults.outsideLine),
            u"the drawing refers to \"%1\", which lies outside of it"_s.arg(faults.outside), {},
            faults.outside});
    if (isBlank(*surface))
        findings.push_back({Code::PictureBlank, picture.place, u"the picture shows nothing"_s, {}, {}});
}

void checkPixels(const PictureFile& picture, int smallest, Square square, Findings& findings)
{
    const auto image = decoded(picture.content, representations.back().edge);
    if (!image) {
        findings.push_back(
            {Code::PictureUnreadable, picture.place, u"this is no picture that the store reads"_s, {}, {}});
        return;
    }
    const QString size = u"%1 × %2"_s.arg(image->width).arg(image->height);
    if (std::ranges::all_of(image->pixels, [&](auto pixel) { return pixel == image->pixels.front(); }))
        findings.push_back({Code::PictureBlank, picture.place, u"the picture shows nothing"_s, {}, {}});
    if (square == Square::Wanted && image->width != image->height)
        findings.push_back({Code::PictureNotSquare, picture.place,
            u"the picture is %1 pixels, and must be square"_s.arg(size), {}, size});
    if (std::max(image->width, image->height) < smallest)
        findings.push_back({Code::PictureSmall, picture.place,
            u"the picture is %1 pixels, and looks blurred below %2"_s.arg(size).arg(smallest),
            QString::number(smallest), size});
}

/// A block of the format: four letters, its whole length, its content.
QByteArray block(std::string_view type, const QByteArray& content)
{
    const auto length = qToBigEndian(quint32(8 + content.size()));
    QByteArray bytes(type.data(), qsizetype(type.size()));
    bytes.append(reinterpret_cast<const char*>(&length), sizeof length);
    return bytes.append(content);
}

} // namespace

std::optional<PictureFile> readPicture(const Path& path, const Place& place, Findings& findings)
{
    auto content = readFile(path);
    if (!content) {
        findings.push_back({Code::PictureMissing, place, content.error().localizedDescription, {}, {}});
        return std::nullopt;
    }
    return PictureFile{*std::move(content), path.extension() == ".svg", place};
}

void checkPicture(const PictureFile& picture, int smallest, Square square, Findings& findings)
{
    if (picture.isDrawing)
        checkDrawing(picture, findings);
    else
        checkPixels(picture, smallest, square, findings);
}

QByteArray squarePng(const PictureFile& picture, int edge)
{
    if (picture.isDrawing)
        return asPng(*drawn(picture.content, edge));
    return asPng(scaled(painted(*decoded(picture.content, edge)), edge));
}

QByteArray iconSet(const PictureFile& picture)
{
    if (picture.content.startsWith("icns"))
        return picture.content;
    int largest = representations.back().edge;
    if (!picture.isDrawing)
        largest = decoded(picture.content, largest)->width;
    QByteArray entries;
    for (const auto& [type, edge] : representations) {
        if (edge <= largest || edge == representations.front().edge)
            entries.append(block(type, squarePng(picture, edge)));
    }
    return block("icns", entries);
}
