#include "pack/Drawing.h"

#include "pack/Files.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

Outcome<Drawing> Drawing::read(const Path& file)
{
    const auto content = readFile(file);
    if (!content)
        return tl::unexpected(content.error());
    if (content->contains("<text"))
        return tl::unexpected(cannot("draw"_L1, file, u"it has texts; turn them into paths"_s));

    auto renderer = std::make_unique<QSvgRenderer>(*content);
    if (!renderer->isValid())
        return tl::unexpected(cannot("draw"_L1, file, u"it is no SVG drawing"_s));
    renderer->setAspectRatioMode(Qt::KeepAspectRatio);
    return Drawing(std::move(renderer));
}

Drawing::Drawing(std::unique_ptr<QSvgRenderer> renderer) : m_renderer(std::move(renderer)) { }

Drawing::Drawing(Drawing&&) noexcept = default;
Drawing& Drawing::operator=(Drawing&&) noexcept = default;
Drawing::~Drawing() = default;

QByteArray Drawing::png(int edge) const
{
    QImage image(edge, edge, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        m_renderer->render(&painter, QRectF(0, 0, edge, edge));
    }

    QBuffer file;
    QImageWriter writer(&file, "png");
    writer.setQuality(0); // PNG has no quality: 0 asks for its best compression
    writer.write(image);
    return file.data();
}
