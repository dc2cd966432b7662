#pragma once

#include "platform/image/Picture.h"

/// The pictures of an icon set that are kept as planes of 8-bit samples, packed by run length: a byte n below
/// 128 is followed by n + 1 samples as they are, any other by one sample that stands for n - 125. They are
/// square; `edge` is known from the entry's type.

/// Three planes, red, green and blue, or all the pixels unpacked. `mask` holds the alpha samples unpacked;
/// without exactly as many as pixels, the picture is opaque. None when the samples do not suffice.
std::optional<Image> decodePackedRgb(Bytes content, Bytes mask, int edge);

/// Whether this is the content of an entry with four planes.
bool isPackedArgb(Bytes content);
/// Four planes, alpha first, behind the word `ARGB`. None when the samples do not suffice.
std::optional<Image> decodePackedArgb(Bytes content, int edge);
