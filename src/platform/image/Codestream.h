#pragma once

#include "platform/image/Picture.h"

/// What the headers of a JPEG 2000 codestream (ISO/IEC 15444-1, annex A) say about the work that it asks for.
struct Codestream {
    PictureSize size;
    int components = 0;
    int tiles = 0;
    /// How often the picture can be halved: the fewest decompositions of a component, and the most.
    int fewestHalvings = 32;
    int mostHalvings = 0;
    int layers = 0;
    /// The most bit planes in which a coefficient is coded.
    int bitPlanes = 0;
    /// The most code blocks in one component of one tile, and the most precincts at one of its resolutions.
    double blocks = 0;
    double precincts = 0;
    std::size_t length = 0;

    /// What decoding takes when the picture is halved that often.
    Effort effort(int halvings) const;
};

/// None when this is no codestream, its headers are damaged, or it uses what icons do not need: segments that
/// change the coding within the picture, components of different sizes or of other than 8 bits, code blocks
/// with more than one segment.
std::optional<Codestream> readCodestream(Bytes codestream);
