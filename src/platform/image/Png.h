#pragma once

#include "platform/image/Picture.h"

/// The picture in a PNG file, converted to sRGB; none when this is no PNG file, or it ends too early.
std::optional<Picture> pngPicture(Bytes file);
