#pragma once

#include "platform/image/Picture.h"

/// Whether this is a set of icons.
bool isIconSet(Bytes file);

/// The smallest picture of the set whose longer edge is at least `edge`, else the largest; damaged ones are
/// passed over. None when no picture is left.
std::optional<Image> decodeIconSet(Bytes file, int edge);
