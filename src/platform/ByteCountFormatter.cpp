#include "platform/ByteCountFormatter.h"

#include <unicode/measunit.h>
#include <unicode/numberformatter.h>

#include <array>

namespace {

/// A unit of a power of ten bytes, and how many decimals it is shown with.
struct Unit {
    int exponent;
    int decimals;
};

constexpr std::array<Unit, 6> ascending{{{0, 0}, {3, 0}, {6, 1}, {9, 2}, {12, 2}, {15, 2}}};

quint64 powerOfTen(int exponent)
{
    return exponent == 0 ? 1 : 10 * powerOfTen(exponent - 1);
}

quint64 magnitude(qint64 number)
{
    return number < 0 ? 0 - static_cast<quint64>(number) : static_cast<quint64>(number);
}

/// Qt knows no plural forms of «byte». All else it knows too, at a fraction of what ICU costs a start.
QString wholeBytes(const QLocale& locale, qint64 bytes)
{
    using namespace icu::number;
    UErrorCode status = U_ZERO_ERROR;
    const auto conventions = icu::Locale::forLanguageTag(locale.bcp47Name().toLatin1().constData(), status);
    const auto text = NumberFormatter::withLocale(conventions)
                          .unit(icu::MeasureUnit::getByte())
                          .unitWidth(UNUM_UNIT_WIDTH_FULL_NAME)
                          .formatInt(bytes, status)
                          .toString(status);
    return QStringView(text.getBuffer(), text.length()).toString();
}

} // namespace

ByteCountFormatter::ByteCountFormatter(const QLocale& locale) : m_locale(locale.bcp47Name()) { }

QString ByteCountFormatter::string(qint64 bytes) const
{
    const auto steps = [size = magnitude(bytes)](Unit unit) {
        const quint64 step = powerOfTen(unit.exponent - unit.decimals);
        return (size + step / 2) / step;
    };
    const auto* chosen = ascending.begin();
    while (chosen != ascending.end() - 1 && steps(*chosen) >= 1000 * powerOfTen(chosen->decimals))
        ++chosen;
    if (chosen->exponent == 0)
        return wholeBytes(m_locale, bytes);

    const double number = double(steps(*chosen)) / double(powerOfTen(chosen->decimals));
    const QString one =
        m_locale.formattedDataSize(qint64(powerOfTen(chosen->exponent)), 0, QLocale::DataSizeSIFormat);
    return m_locale.toString(bytes < 0 ? -number : number, 'f', QLocale::FloatingPointShortest) + QChar::Nbsp
        + one.section(u' ', 1);
}

QString formatByteCount(qint64 bytes)
{
    static const ByteCountFormatter formatter(QLocale::system());
    return formatter.string(bytes);
}
