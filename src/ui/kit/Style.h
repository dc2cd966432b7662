#pragma once

#include "ui/kit/Lengths.h"
#include "ui/kit/TextStyles.h"

#include <QColor>
#include <QFont>

class QApplication;
class QPalette;

/// How the kit's widgets look: every colour here, every font in TextStyles.h, every length in Lengths.h.
namespace Style {

/// `percent` of the colour's opacity.
QColor translucent(QColor color, int percent);

QColor windowBackground();
QColor dialog();
/// Lies over the whole window while a sheet is shown.
QColor dimming();
/// One of the layers that make the soft shadow of a sheet's panel.
QColor sheetShade();

QColor primaryText();
/// At least 4.5:1 on every background above.
QColor secondaryText();
QColor white();
QColor disabledText();

QColor accent();
QColor accentHovered();
QColor accentPressed();
/// Selected characters in a text.
QColor textSelection();
QColor divider();
QColor fieldFill();
QColor fieldBorder();
QColor hover();
QColor pressed();
QColor scrollThumb();
QColor scrollThumbHovered();

/// The square of a symbol beside a text of that style.
constexpr Length symbolFor(const TextStyle& style)
{
    return {style.size * symbolPerFont};
}

/// Matching a font costs milliseconds once per family and weight; nothing is matched before the font is used.
QFont font(const TextStyle& style);

QPalette palette();

/// Fusion with our palette, font and words, and the kit's accessible nodes. Call once, before the first
/// widget and after Qt's own translations are installed.
void applyTo(QApplication& application);

} // namespace Style
