#pragma once

#include "pack/Outcome.h"
#include "platform/Path.h"

#include <QByteArray>

#include <memory>

class QSvgRenderer;

/// A vector drawing from an SVG file (SVG Tiny 1.2).
class Drawing {
public:
    /// Reads the drawing. One that has texts is refused: they would look as the fonts of this machine want.
    static Outcome<Drawing> read(const Path& file);

    Drawing(Drawing&&) noexcept;
    Drawing& operator=(Drawing&&) noexcept;
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;
    ~Drawing();

    /// The drawing in a square of `edge` × `edge` pixels on a transparent ground, as the content of a PNG
    /// file.
    QByteArray png(int edge) const;

private:
    explicit Drawing(std::unique_ptr<QSvgRenderer> renderer);

    std::unique_ptr<QSvgRenderer> m_renderer;
};
