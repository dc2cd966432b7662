#include "ui/ResourceImage.h"

#include "platform/Image.h"
#include "platform/Platform.h"

QImage loadImage(const Path& file, int edge)
{
    const auto bytes = Platform::current().files->read(file);
    auto image = bytes ? decodeImage(bytes->bytes(), edge) : std::nullopt;
    if (!image)
        return {};
    auto* const kept = new Image(std::move(*image));
    return {reinterpret_cast<uchar*>(kept->pixels.data()), kept->width, kept->height,
        qsizetype(kept->width) * 4, QImage::Format_ARGB32,
        [](void* pointer) { delete static_cast<Image*>(pointer); }, kept};
}

QImage fitted(const QImage& image, const QSizeF& box, qreal devicePixelRatio)
{
    if (image.isNull())
        return image;
    QImage scaled =
        image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
            .scaled((box * devicePixelRatio).toSize(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(devicePixelRatio);
    return scaled;
}
