#pragma once

#include "platform/image/Picture.h"

/// What the headers of a JPEG 2000 codestream (ISO/IEC 15444-1, annex A) say of the picture.
struct Codestream {
    PictureSize size;
    int components = 0;
    /// How often the picture can be halved: the fewest decompositions of a component.
    int halvings = 32;
};

/// None when this is no codestream, its headers are damaged, or it uses what icons do not need and what can
/// make a few bytes take minutes: more than a million pixels or many tiles, layers, small code blocks or
/// small precincts; segments that change the coding within the picture; components of different sizes or of
/// other than 8 bits; code blocks with more than one segment.
std::optional<Codestream> readCodestream(Bytes codestream);
