#pragma once

#include "pack/findings/Finding.h"
#include "platform/Failure.h"
#include "platform/Path.h"

#include <QByteArray>

/// A picture file of a collection or a store.
struct PictureFile {
    QByteArray content;
    /// An SVG drawing; otherwise what `decodeImage` reads.
    bool isDrawing = false;
    Place place;
};

/// The file at `path`; a finding when there is none.
std::optional<PictureFile> readPicture(const Path& path, const Place& place, Findings& findings);

enum class Square { Wanted, Indifferent };

/// Whether the picture can be shown, looks the same everywhere, and has `smallest` pixels at least.
void checkPicture(const PictureFile& picture, int smallest, Square square, Findings& findings);

/// The picture in a square of `edge` pixels on a transparent ground, as a PNG file. It must have passed its
/// check.
QByteArray squarePng(const PictureFile& picture, int edge);

/// A set of icons (Apple Icon Image, ICNS) whose entries are PNG pictures of 16 to 512 pixels; a picture
/// that is such a set is taken as it is. It must have passed its check.
QByteArray iconSet(const PictureFile& picture);
