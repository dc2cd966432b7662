#include "ui/ResourceImage.h"

#include "platform/Image.h"
#include "platform/Platform.h"

#include <QtMath>

#include <utility>

namespace {

QImage decoded(std::span<const std::byte> file, int edge)
{
    auto image = decodeImage(file, edge);
    if (!image)
        return {};
    auto* const kept = new Image(std::move(*image));
    return {reinterpret_cast<uchar*>(kept->pixels.data()), kept->width, kept->height,
        qsizetype(kept->width) * 4, QImage::Format_ARGB32,
        [](void* pointer) { delete static_cast<Image*>(pointer); }, kept};
}

} // namespace

bool ResourceImage::load(const Path& file, const QSize& box, qreal devicePixelRatio)
{
    const Files& files = Platform::current().files;
    const auto stamp = files.stamp(file);
    const QSizeF pixels = QSizeF(box) * devicePixelRatio;
    const bool isSameFile = std::exchange(m_stamp, stamp) == stamp;
    if (std::exchange(m_pixels, pixels) == pixels && isSameFile)
        return false;

    const auto read = files.read(file);
    m_image = read ? decoded(std::as_bytes(std::span(*read)), qCeil(pixels.width())) : QImage();
    if (m_image.isNull())
        return true;
    m_image = m_image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                  .scaled(pixels.toSize(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    m_image.setDevicePixelRatio(devicePixelRatio);
    return true;
}

void ResourceImage::clear()
{
    *this = {};
}
