#pragma once

#include "platform/Files.h"

#include <QImage>

/// The picture in a file. Every load looks at the file again; it is read and decoded again only when it has
/// changed, so that a refresh of the window, or a keystroke, costs little.
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
    std::optional<FileStamp> m_stamp;
    int m_edge = 0;
    QImage m_image;
};
