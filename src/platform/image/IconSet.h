#pragma once

#include "platform/image/Picture.h"

/// Whether this is a set of icons.
bool isIconSet(Bytes file);

/// The pictures of a set, in its order, each to be decoded for `edge`; what is no picture is passed over.
std::vector<Picture> picturesIn(Bytes iconSet, int edge);
