#include "ui/kit/Style.h"
#include "ui/kit/Shapes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

double luminance(const QColor& color)
{
    const auto linear = [](float part) {
        return part <= 0.04045f ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

QColor over(const QColor& top, const QColor& below)
{
    const auto mix = [&](float a, float b) { return a * top.alphaF() + b * (1 - top.alphaF()); };
    return QColor::fromRgbF(
        mix(top.redF(), below.redF()), mix(top.greenF(), below.greenF()), mix(top.blueF(), below.blueF()));
}

double contrast(const QColor& text, const QColor& below)
{
    return (luminance(over(text, below)) + 0.05) / (luminance(below) + 0.05);
}

} // namespace

TEST(Style, TextsCanBeReadOnEveryBackground)
{
    for (const QColor& background :
        {Style::windowBackground(), Style::dialog(),
            over(Style::fieldFill(), Style::windowBackground()), over(Style::hover(), Style::windowBackground())}) {
        SCOPED_TRACE(background.name().toStdString());

        EXPECT_GE(contrast(Style::primaryText(), background), 7);
        EXPECT_GE(contrast(Style::secondaryText(), background), 4.5);
        EXPECT_GE(contrast(Style::accent(), background), 3); // the focus ring
    }
    EXPECT_GE(contrast(Style::white(), Style::accent()), 3);
    EXPECT_GE(contrast(Style::white(), Style::textSelection()), 4.5);
}
