#pragma once

#include "platform/image/Picture.h"

/// The size that a PNG file states in its first chunk; none when this is no PNG file, or the size is not
/// acceptable.
std::optional<PictureSize> pngSize(Bytes file);

/// The picture in a PNG file, converted to sRGB; none when it is damaged.
std::optional<Image> decodePng(Bytes file);
