#pragma once

#include "platform/image/Picture.h"

/// The size that a JPEG 2000 file or bare codestream states; none when this is neither, or the size is not
/// acceptable.
std::optional<PictureSize> jpeg2000Size(Bytes file);

/// The picture in a JPEG 2000 file or bare codestream: grey or RGB (also as sYCC), with or without alpha, at
/// any depth; none when it is damaged, or of another kind.
std::optional<Image> decodeJpeg2000(Bytes file);
