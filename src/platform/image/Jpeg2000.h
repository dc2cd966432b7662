#pragma once

#include "platform/image/Picture.h"

/// The picture in a JPEG 2000 file or bare codestream, to be decoded at the smallest of its resolutions whose
/// longer edge is at least `edge`, or at the largest one that is affordable. None when this is neither, or it
/// uses a feature that icons do not need.
std::optional<Picture> jpeg2000Picture(Bytes file, int edge);
