#include "ui/Look.h"

namespace Look {

// A table, one colour a line.
// clang-format off
QColor menuBar() { return QColor(0x2A, 0x2A, 0x2D); }
QColor sidebar() { return QColor(0x29, 0x29, 0x2C); }
QColor sidebarEdge() { return QColor(0x16, 0x16, 0x18); }
QColor selection() { return Style::translucent(Style::accent(), 19); }
QColor cardText() { return Style::translucent(Style::white(), 80); }
QColor cardStart() { return QColor::fromRgbF(0.3f, 0.055f, 0.06f); }
QColor cardEnd() { return QColor::fromRgbF(0.1f, 0.045f, 0.055f); }
QColor shadow() { return Style::translucent(Qt::black, 30); }
// clang-format on

} // namespace Look
