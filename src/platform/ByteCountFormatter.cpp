#include "platform/ByteCountFormatter.h"

#include <unicode/measunit.h>
#include <unicode/numberformatter.h>

#include <array>

using icu::MeasureUnit;
using icu::number::LocalizedNumberFormatter;
using icu::number::NumberFormatter;
using icu::number::Precision;
using icu::number::Scale;

namespace {

struct Unit {
    quint64 bytes;
    /// The smallest step that is shown, in bytes.
    quint64 step;
    LocalizedNumberFormatter formatter;
};

quint64 powerOfTen(int exponent)
{
    return exponent == 0 ? 1 : 10 * powerOfTen(exponent - 1);
}

Unit unit(const icu::Locale& locale, const MeasureUnit& name, int exponent, int decimals)
{
    return {powerOfTen(exponent), powerOfTen(exponent - decimals),
        NumberFormatter::withLocale(locale)
            .unit(name)
            .unitWidth(exponent == 0 ? UNUM_UNIT_WIDTH_FULL_NAME : UNUM_UNIT_WIDTH_SHORT)
            .scale(Scale::powerOfTen(-decimals))
            .precision(Precision::maxFraction(decimals))};
}

quint64 magnitude(qint64 number)
{
    return number < 0 ? 0 - static_cast<quint64>(number) : static_cast<quint64>(number);
}

} // namespace

struct ByteCountFormatter::Units {
    std::array<Unit, 6> ascending;
};

ByteCountFormatter::ByteCountFormatter(const QLocale& locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto conventions = icu::Locale::forLanguageTag(locale.bcp47Name().toLatin1().constData(), status);
    m_units = std::make_unique<const Units>(Units{{
        unit(conventions, MeasureUnit::getByte(), 0, 0),
        unit(conventions, MeasureUnit::getKilobyte(), 3, 0),
        unit(conventions, MeasureUnit::getMegabyte(), 6, 1),
        unit(conventions, MeasureUnit::getGigabyte(), 9, 2),
        unit(conventions, MeasureUnit::getTerabyte(), 12, 2),
        unit(conventions, MeasureUnit::getPetabyte(), 15, 2),
    }});
}

ByteCountFormatter::~ByteCountFormatter() = default;

QString ByteCountFormatter::string(qint64 bytes) const
{
    const quint64 size = magnitude(bytes);
    const auto steps = [size](const Unit& unit) { return (size + unit.step / 2) / unit.step; };

    const Unit* chosen = &m_units->ascending.back();
    for (const Unit& unit : m_units->ascending) {
        if (steps(unit) * unit.step < 1000 * unit.bytes) {
            chosen = &unit;
            break;
        }
    }

    UErrorCode status = U_ZERO_ERROR;
    const auto number = static_cast<qint64>(steps(*chosen));
    const auto text = chosen->formatter.formatInt(bytes < 0 ? -number : number, status).toString(status);
    return QStringView(text.getBuffer(), text.length()).toString();
}

QString formatByteCount(qint64 bytes)
{
    static const ByteCountFormatter formatter(QLocale::system());
    return formatter.string(bytes);
}
