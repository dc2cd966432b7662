#include "pack/files/FileAccess.h"
#include "pack/pictures/Pictures.h"

#include <cstdio>

/// Draws an SVG into a PNG file of so many pixels across and down.
int main(int argc, char* argv[])
{
    if (argc != 4) {
        std::fputs("usage: plovistore-icon DRAWING.svg PIXELS PICTURE.png\n", stderr);
        return 2;
    }
    Findings findings;
    const auto drawing = readPicture(argv[1], {QString::fromUtf8(argv[1]), 0, {}}, findings);
    if (drawing)
        checkPicture(*drawing, 0, Square::Wanted, findings);
    for (const Finding& finding : findings)
        std::fprintf(stderr, "plovistore-icon: %s\n", qUtf8Printable(finding.message));
    if (!findings.empty())
        return 1;
    std::remove(argv[3]);
    const auto written = writeFile(argv[3], squarePng(*drawing, QByteArray(argv[2]).toInt()));
    if (!written)
        std::fprintf(stderr, "plovistore-icon: %s\n", qUtf8Printable(written.error().localizedDescription));
    return written ? 0 : 1;
}
