#pragma once

#include "platform/Path.h"

#include <QImage>

/// The picture in a file. Every load reads the file again; it is decoded again only when its content has
/// changed, so that a refresh of the window costs little.
class ResourceImage {
public:
    /// Of a set of pictures the one that suits `edge` device pixels is taken. Returns whether the picture is
    /// another one than before.
    bool load(const Path& file, int edge);
    /// Gives the memory of the pixels back, for whoever keeps a fitted picture; the same file still counts as
    /// no other picture than before.
    void releasePixels() { m_image = {}; }
    /// Forgets the picture.
    void clear();

    /// Null when the file holds no picture that can be read.
    const QImage& image() const { return m_image; }
    /// The picture scaled once to fit `box`, in logical pixels, on a screen of that device pixel ratio.
    QImage fitted(const QSizeF& box, qreal devicePixelRatio) const;

private:
    std::size_t m_content = 0;
    int m_edge = 0;
    QImage m_image;
};
