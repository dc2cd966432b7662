#include "platform/ByteCountFormatter.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

struct Row {
    qint64 bytes;
    QString text;
};

void expectTexts(const QLocale& locale, const std::initializer_list<Row>& rows)
{
    const ByteCountFormatter formatter(locale);
    for (const auto& [bytes, text] : rows) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(formatter.string(bytes).replace(QChar::Nbsp, u' '), text);
    }
}

TEST(ByteCountFormatter, RussianTextsHaveTheirPluralFormsAndADecimalComma)
{
    expectTexts(QLocale(u"ru_RU"_s),
        {{0, u"0 байт"_s}, {1, u"1 байт"_s}, {2, u"2 байта"_s}, {5, u"5 байт"_s}, {21, u"21 байт"_s},
            {999, u"999 байт"_s}, {1000, u"1 кБ"_s}, {12'400'000, u"12,4 МБ"_s}, {31'000'000, u"31 МБ"_s},
            {1'234'567'890, u"1,23 ГБ"_s}, {5'500'000'000'000, u"5,5 ТБ"_s},
            {std::numeric_limits<qint64>::max(), u"9 223,37 ПБ"_s}});
    EXPECT_EQ(ByteCountFormatter(QLocale(u"ru_RU"_s)).string(1000), u"1\u00A0кБ"_s);
}

TEST(ByteCountFormatter, ARoundedThousandBecomesOneOfTheNextUnit)
{
    expectTexts(QLocale(u"en_US"_s),
        {{999'499, u"999 kB"_s}, {999'500, u"1 MB"_s}, {999'949'999, u"999.9 MB"_s}, {999'950'000, u"1 GB"_s},
            {999'994'999'999, u"999.99 GB"_s}, {999'995'000'000, u"1 TB"_s},
            {999'995'000'000'000, u"1 PB"_s}});
}

TEST(ByteCountFormatter, NegativeNumbersKeepTheirSign)
{
    expectTexts(QLocale(u"en_US"_s),
        {{-1, u"-1 byte"_s}, {-1500, u"-2 kB"_s}, {std::numeric_limits<qint64>::min(), u"-9,223.37 PB"_s}});
}

TEST(ByteCountFormatter, AnUnnamedLocaleIsEnglish)
{
    expectTexts(QLocale::c(), {{1, u"1 byte"_s}, {2, u"2 bytes"_s}, {12'400'000, u"12.4 MB"_s}});
}

} // namespace
