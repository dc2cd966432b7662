#include "ui/kit/Style.h"

#include "ui/kit/Accessibility.h"
#include "ui/kit/FontRendering.h"
#include "ui/kit/KitStyle.h"
#include "ui/kit/Words.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QScreen>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal dotsPerInch = 96;

QFont::Weight weightOf(Style::Weight weight)
{
    switch (weight) {
    case Style::Weight::Regular:
        return QFont::Normal;
    case Style::Weight::Medium:
        return QFont::Medium;
    case Style::Weight::Semibold:
        return QFont::DemiBold;
    case Style::Weight::Bold:
        return QFont::Bold;
    }
    return QFont::Normal;
}

/// A desktop without a font of its own names none in particular.
bool isUnspecific(const QString& family)
{
    return family.isEmpty() || family.startsWith(u"Sans"_s, Qt::CaseInsensitive) || family == u"Helvetica"_s;
}

/// One family that is there: of several Qt would sort all fonts of the machine at once, and for a missing one
/// it would take whatever comes first. Asked for one family, Qt looks for its aliases as well.
QString installed(const QString& family, const QString& otherwise)
{
    return QFontDatabase::families().contains(family) ? family : otherwise;
}

/// Qt makes FreeType embolden the stems of PostScript outlines, for a way of blending that is not the one
/// used here: texts would come out a quarter too heavy. Its only say in this is the environment, read when
/// the first font is opened, which programs started later shall not inherit.
void drawStemsAsDesigned()
{
    const char* const properties = "FREETYPE_PROPERTIES";
    if (qEnvironmentVariableIsSet(properties))
        return;
    qputenv(properties, "cff:darkening-parameters=500,0,1000,0,1500,0,2000,0");
    Style::font(Style::body);
    qunsetenv(properties);
}

} // namespace

namespace Style {

QColor translucent(QColor color, int percent)
{
    color.setAlphaF(static_cast<float>(percent) / 100);
    return color;
}

// A table, one colour a line.
// clang-format off
QColor windowBackground() { return QColor(0x1E, 0x1E, 0x20); }
QColor dialog() { return QColor(0x32, 0x32, 0x36); }
QColor dimming() { return translucent(Qt::black, 36); }
QColor sheetShade() { return translucent(Qt::black, 3); }

QColor primaryText() { return translucent(Qt::white, 92); }
QColor secondaryText() { return translucent(Qt::white, 55); }
QColor white() { return QColor(Qt::white); }
QColor disabledText() { return translucent(Qt::white, 30); }

QColor accent() { return QColor(0xFF, 0x45, 0x3A); }
QColor accentHovered() { return QColor(0xFF, 0x5A, 0x50); }
QColor accentPressed() { return QColor(0xD6, 0x38, 0x2F); }
QColor textSelection() { return QColor(0x8C, 0x2E, 0x29); }
QColor divider() { return translucent(Qt::white, 10); }
QColor fieldFill() { return translucent(Qt::white, 6); }
QColor fieldBorder() { return translucent(Qt::white, 14); }
QColor hover() { return translucent(Qt::white, 6); }
QColor pressed() { return translucent(Qt::white, 11); }
QColor scrollThumb() { return translucent(Qt::white, 22); }
QColor scrollThumbHovered() { return translucent(Qt::white, 38); }

// clang-format on

qreal scale()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInch() / dotsPerInch : 1;
}

int px(qreal points)
{
    return qRound(points * scale());
}

QFont font(const TextStyle& style)
{
    QFont font = QApplication::font();
    static const QString rounded = installed(u"Manrope"_s, font.family());
    if (style.design == Design::Rounded)
        font.setFamilies({rounded});
    font.setPixelSize(px(style.size));
    font.setWeight(weightOf(style.weight));
    static const FontRendering rendering(QApplication::font());
    rendering.open(font);
    return font;
}

QPalette palette()
{
    QPalette palette;
    for (const auto& [role, color] : {
             std::pair{QPalette::Window, windowBackground()},
             {QPalette::WindowText, primaryText()},
             {QPalette::Base, windowBackground()},
             {QPalette::AlternateBase, QColor(0x29, 0x29, 0x2C)},
             {QPalette::Text, primaryText()},
             {QPalette::PlaceholderText, secondaryText()},
             {QPalette::Button, dialog()},
             {QPalette::ButtonText, primaryText()},
             {QPalette::BrightText, white()},
             {QPalette::ToolTipBase, dialog()},
             {QPalette::ToolTipText, primaryText()},
             {QPalette::Highlight, textSelection()},
             {QPalette::HighlightedText, white()},
             {QPalette::Link, accentHovered()},
             {QPalette::LinkVisited, accentHovered()},
             {QPalette::Light, QColor(0x48, 0x48, 0x4C)},
             {QPalette::Midlight, QColor(0x3C, 0x3C, 0x40)},
             {QPalette::Mid, QColor(0x26, 0x26, 0x28)},
             {QPalette::Dark, QColor(0x18, 0x18, 0x1A)},
             {QPalette::Shadow, QColor(0x0C, 0x0C, 0x0D)},
         })
        palette.setColor(QPalette::All, role, color);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
             QPalette::PlaceholderText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, disabledText());
    palette.setColor(QPalette::Disabled, QPalette::Highlight, dialog());
    return palette;
}

void applyTo(QApplication& application)
{
    auto style = std::make_unique<KitStyle>();
    style->setParent(&application);
    QApplication::setStyle(style.release());
    QApplication::setPalette(palette());
    QFont system = QApplication::font();
    if (isUnspecific(system.family()))
        system.setFamilies({installed(u"Inter"_s, u"sans-serif"_s)});
    system.setPixelSize(px(body.size));
    QApplication::setFont(system);
    drawStemsAsDesigned();
    QCoreApplication::installTranslator(new Words(&application));
    installAccessibility();
}

} // namespace Style
