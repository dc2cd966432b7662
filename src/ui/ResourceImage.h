#pragma once

#include "platform/Files.h"

#include <QImage>

/// The picture in a file, at the size in which it is shown. Every load looks at the file again; it is read
/// and decoded again only when it has changed, so that a refresh of the window, or a keystroke, costs little.
class ResourceImage {
public:
    /// Scales the picture to fit `box`, in logical pixels, on a screen of that device pixel ratio. Of a set
    /// of pictures the one that suits the width is taken. Returns whether the picture is another one than
    /// before.
    bool load(const Path& file, const QSize& box, qreal devicePixelRatio);
    /// Forgets the picture.
    void clear();

    /// Null when the file holds no picture that can be read.
    const QImage& image() const { return m_image; }

private:
    std::optional<FileStamp> m_stamp;
    QSizeF m_pixels;
    QImage m_image;
};
