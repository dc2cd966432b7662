#pragma once

#include "platform/Image.h"

#include <openjpeg.h>

#include <initializer_list>
#include <string>

/// Image files made by other hands than those under test.
namespace pictures {

using File = std::vector<std::byte>;

/// A picture of one colour.
Image plain(int width, int height, std::uint32_t colour);
/// A picture in which every pixel differs from its neighbours, in alpha too.
Image colourful(int width, int height);

File png(const Image& image);

/// One component of a JPEG 2000 picture: one sample for every `step` pixels in both directions.
struct Component {
    std::vector<int> samples;
    unsigned depth = 8;
    unsigned step = 1;
};

/// Packed without loss. `codec` chooses between the file and the bare codestream.
File jpeg2000(int width, int height, const std::vector<Component>& components, OPJ_COLOR_SPACE space,
    OPJ_CODEC_FORMAT codec = OPJ_CODEC_JP2);
/// The same from an image, as RGB with alpha.
File jpeg2000(const Image& image, OPJ_CODEC_FORMAT codec = OPJ_CODEC_JP2);

struct IconEntry {
    /// Four characters.
    std::string type;
    File content;
};

File iconSet(const std::vector<IconEntry>& entries);

/// Bytes from a text of hexadecimal digits.
File fromHex(const char* digits);
File joined(std::initializer_list<File> parts);

} // namespace pictures
