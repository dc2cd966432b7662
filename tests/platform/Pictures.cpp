#include "platform/Pictures.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <png.h>

#include <bit>
#include <memory>

namespace pictures {

namespace {

File fileOf(const QByteArray& bytes)
{
    const auto view = std::as_bytes(std::span(bytes.data(), static_cast<std::size_t>(bytes.size())));
    return {view.begin(), view.end()};
}

File bigEndian(std::size_t number)
{
    return {std::byte(number >> 24), std::byte(number >> 16), std::byte(number >> 8), std::byte(number)};
}

std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)> toOpenJpeg(
    int width, int height, const std::vector<Component>& components, OPJ_COLOR_SPACE space)
{
    std::vector<opj_image_cmptparm_t> parameters;
    for (const Component& component : components) {
        opj_image_cmptparm_t parameter{};
        parameter.dx = parameter.dy = component.step;
        parameter.w = (static_cast<unsigned>(width) + component.step - 1) / component.step;
        parameter.h = (static_cast<unsigned>(height) + component.step - 1) / component.step;
        parameter.prec = component.depth;
        parameters.push_back(parameter);
    }
    auto* image = opj_image_create(static_cast<unsigned>(components.size()), parameters.data(), space);
    image->x1 = static_cast<unsigned>(width);
    image->y1 = static_cast<unsigned>(height);
    for (std::size_t i = 0; i < components.size(); ++i)
        std::ranges::copy(components[i].samples, image->comps[i].data);
    return {image, &opj_image_destroy};
}

} // namespace

Image plain(int width, int height, std::uint32_t colour)
{
    return {width, height, std::vector(static_cast<std::size_t>(width * height), colour)};
}

Image colourful(int width, int height)
{
    Image image = plain(width, height, 0);
    std::uint32_t colour = 0x12345678;
    for (auto& pixel : image.pixels)
        pixel = colour = colour * 1664525 + 1013904223;
    return image;
}

File png(const Image& image)
{
    png_image writer{};
    writer.version = PNG_IMAGE_VERSION;
    writer.width = static_cast<png_uint_32>(image.width);
    writer.height = static_cast<png_uint_32>(image.height);
    writer.format = std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;

    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(writer);
    File file(size);
    png_image_write_to_memory(&writer, file.data(), &size, 0, image.pixels.data(), 0, nullptr);
    file.resize(size);
    return file;
}

File jpeg2000(int width, int height, const std::vector<Component>& components, OPJ_COLOR_SPACE space,
    OPJ_CODEC_FORMAT codec)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("picture"));
    {
        const auto image = toOpenJpeg(width, height, components, space);
        const std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)> encoder(
            opj_create_compress(codec), &opj_destroy_codec);
        const std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)> stream(
            opj_stream_create_default_file_stream(path.toUtf8().constData(), OPJ_FALSE), &opj_stream_destroy);
        opj_cparameters_t parameters;
        opj_set_default_encoder_parameters(&parameters);
        parameters.numresolution = 3;
        parameters.tcp_numlayers = 1;
        parameters.cp_disto_alloc = 1;
        opj_setup_encoder(encoder.get(), &parameters, image.get());
        opj_start_compress(encoder.get(), image.get(), stream.get());
        opj_encode(encoder.get(), stream.get());
        opj_end_compress(encoder.get(), stream.get());
    }
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? fileOf(file.readAll()) : File();
}

File jpeg2000(const Image& image, OPJ_CODEC_FORMAT codec)
{
    std::vector<Component> components(4);
    for (const std::uint32_t pixel : image.pixels) {
        for (std::size_t i = 0; i < 4; ++i)
            components[i].samples.push_back(static_cast<int>(pixel >> (i == 3 ? 24 : 16 - 8 * i) & 255));
    }
    return jpeg2000(image.width, image.height, components, OPJ_CLRSPC_SRGB, codec);
}

File iconSet(const std::vector<IconEntry>& entries)
{
    File content;
    for (const auto& [type, picture] : entries)
        content = joined(
            {content, fileOf(QByteArray::fromStdString(type)), bigEndian(picture.size() + 8), picture});
    return joined({fileOf("icns"), bigEndian(content.size() + 8), content});
}

File fromHex(const char* digits)
{
    return fileOf(QByteArray::fromHex(digits));
}

File joined(std::initializer_list<File> parts)
{
    File whole;
    for (const File& part : parts)
        whole.insert(whole.end(), part.begin(), part.end());
    return whole;
}

} // namespace pictures
