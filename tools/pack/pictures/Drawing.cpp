#include "pack/pictures/Drawing.h"

#include <QXmlStreamReader>

#include <librsvg/rsvg.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The edge at which a drawing is looked at.
constexpr int sampleEdge = 64;

struct ObjectDeleter {
    void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
};

bool isOutside(const QString& target)
{
    return !target.startsWith(u'#') && !target.startsWith("data:"_L1);
}

/// What a text of a style or an attribute refers to outside of the drawing; null for nothing.
QString outsideOfStyle(const QString& style)
{
    if (style.contains("@import"_L1))
        return u"@import"_s;
    for (const QString& behind : style.split(u"url("_s).mid(1)) {
        QString target = behind.section(u')', 0, 0).trimmed();
        target.remove(u'"').remove(u'\'');
        if (isOutside(target))
            return target;
    }
    return {};
}

QString outsideOfElement(const QXmlStreamReader& xml)
{
    for (const QXmlStreamAttribute& attribute : xml.attributes()) {
        QString value = attribute.value().trimmed().toString();
        const bool isReference = attribute.name() == "href"_L1 || attribute.name() == "src"_L1;
        if (!isReference) {
            if (QString outside = outsideOfStyle(value); !outside.isNull())
                return outside;
        } else if (xml.name() != "a"_L1 && isOutside(value)) {
            return value;
        }
    }
    return {};
}

/// What a drawing has that it must not have, with the line where it does first; 0 for nowhere.
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
    bool isStyle = false;
    while (!xml.atEnd()) {
        QString outside;
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            isStyle = xml.name() == "style"_L1;
            if (xml.name() == "text"_L1 && faults.textLine == 0)
                faults.textLine = int(xml.lineNumber());
            outside = outsideOfElement(xml);
            break;
        case QXmlStreamReader::Characters:
            outside = isStyle ? outsideOfStyle(xml.text().toString()) : QString();
            break;
        case QXmlStreamReader::ProcessingInstruction:
            if (xml.processingInstructionTarget() == "xml-stylesheet"_L1)
                outside = u"xml-stylesheet"_s;
            break;
        default:
            break;
        }
        if (!outside.isNull() && faults.outsideLine == 0) {
            faults.outsideLine = int(xml.lineNumber());
            faults.outside = outside;
        }
    }
    faults.isSound = !xml.hasError();
    return faults;
}

} // namespace

Surface emptySurface(int edge)
{
    return {cairo_image_surface_create(CAIRO_FORMAT_ARGB32, edge, edge), &cairo_surface_destroy};
}

std::span<std::uint32_t> pixelsOf(const Surface& surface)
{
    // Rows of whole pixels have nothing between them.
    const auto size = std::size_t(cairo_image_surface_get_stride(surface.get()))
        * std::size_t(cairo_image_surface_get_height(surface.get())) / sizeof(std::uint32_t);
    return {reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface.get())), size};
}

std::optional<Surface> drawn(const QByteArray& svg, int edge)
{
    const std::unique_ptr<RsvgHandle, ObjectDeleter> handle(rsvg_handle_new_from_data(
        reinterpret_cast<const guint8*>(svg.constData()), gsize(svg.size()), nullptr));
    if (!handle)
        return std::nullopt;
    Surface surface = emptySurface(edge);
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(
        cairo_create(surface.get()), &cairo_destroy);
    const RsvgRectangle square{0, 0, double(edge), double(edge)};
    if (!rsvg_handle_render_document(handle.get(), context.get(), &square, nullptr))
        return std::nullopt;
    cairo_surface_flush(surface.get());
    return surface;
}

void checkDrawing(const QByteArray& svg, const Place& place, Findings& findings)
{
    const auto tell = [&](Code code, int line, const QString& message, const QString& found = {}) {
        findings.push_back({.code = code,
            .place = {.file = place.file, .line = line, .entry = place.entry},
            .message = message,
            .found = found});
    };
    const DrawingFaults faults = faultsOf(svg);
    const auto surface = faults.isSound ? drawn(svg, sampleEdge) : std::nullopt;
    if (!surface) {
        tell(Code::PictureUnreadable, 0, u"this is no SVG drawing"_s);
        return;
    }
    if (faults.textLine > 0)
        tell(Code::PictureText, faults.textLine,
            u"the drawing has a text, which looks as each machine's fonts want; make it a path"_s);
    if (faults.outsideLine > 0)
        tell(Code::PictureExternal, faults.outsideLine,
            u"the drawing refers to \"%1\", which lies outside of it"_s.arg(faults.outside), faults.outside);
    if (std::ranges::adjacent_find(pixelsOf(*surface), std::not_equal_to()) == pixelsOf(*surface).end())
        tell(Code::PictureBlank, 0, u"the picture shows nothing"_s);
}
