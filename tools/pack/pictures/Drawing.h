#pragma once

#include "pack/findings/Finding.h"

#include <QByteArray>

#include <cairo.h>

#include <memory>
#include <optional>
#include <span>

/// Pixels as 0xAARRGGBB with alpha multiplied in.
using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

/// A square without anything on it.
Surface emptySurface(int edge);
std::span<std::uint32_t> pixelsOf(const Surface& surface);

/// Draws an SVG file, which has no address: nothing outside of it can be read. None when it is no drawing.
std::optional<Surface> drawn(const QByteArray& svg, int edge);

/// Whether the drawing can be shown, and looks the same on every machine.
void checkDrawing(const QByteArray& svg, const Place& place, Findings& findings);
