#pragma once

#include "ui/kit/Lengths.h"
#include "ui/kit/TextStyles.h"

#include <QColor>
#include <QFont>

class QApplication;
class QPalette;

/// How the program looks: every colour here, every font in TextStyles.h, every length in Lengths.h.
namespace Style {

QColor windowBackground();
QColor sidebar();
QColor sidebarEdge();
QColor menuBar();
QColor dialog();
/// Lies over the whole window while a sheet is shown.
QColor dimming();
/// One of the layers that make the soft shadow of a sheet's panel.
QColor sheetShade();

QColor primaryText();
/// At least 4.5:1 on every background above.
QColor secondaryText();
QColor white();
/// White as the featured card's smaller text wears it.
QColor cardText();
QColor disabledText();

QColor accent();
QColor accentHovered();
QColor accentPressed();
/// The chosen section.
QColor selection();
/// Selected characters in a text.
QColor textSelection();
QColor divider();
QColor fieldFill();
QColor fieldBorder();
QColor hover();
QColor pressed();
QColor scrollThumb();
QColor scrollThumbHovered();

QColor cardStart();
QColor cardEnd();
QColor shadow();

/// Matching a font costs milliseconds once per family and weight; nothing is matched before the font is used.
QFont font(const TextStyle& style);

QPalette palette();

/// Fusion with our palette and font, and the kit's accessible nodes. Call once, before the first widget.
void applyTo(QApplication& application);

} // namespace Style
