#pragma once

#include "platform/Path.h"

#include <QImage>

/// The picture in a file, read afresh; of a set of pictures the one that suits `edge` device pixels. Null
/// when the file holds none.
QImage loadImage(const Path& file, int edge);

/// A picture scaled once to fit `box`, in logical pixels, on a screen of that device pixel ratio.
QImage fitted(const QImage& image, const QSizeF& box, qreal devicePixelRatio);
