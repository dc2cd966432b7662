#include "platform/Text.h"

#include "platform/EnvironmentVariable.h"

#include <gtest/gtest.h>

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString composed = u"й"_s;
const QString decomposed = u"и\u0306"_s;

TEST(CanonicalText, EquivalentSpellingsAreOneText)
{
    EXPECT_TRUE(canonicallyEqual(composed, decomposed));
    EXPECT_EQ(canonicalHash(composed), canonicalHash(decomposed));
    EXPECT_EQ((TextSet{composed, decomposed, u"и"_s}).size(), 2U);
    EXPECT_TRUE(canonicallyEqual(u"", QStringView()));
}

TEST(CanonicalText, LetterCaseAccentsAndLookalikesDiffer)
{
    for (const auto& other : {u"Й"_s, u"и"_s, u"й "_s, QString()})
        EXPECT_FALSE(canonicallyEqual(composed, other));
    EXPECT_FALSE(canonicallyEqual(u"ﬁ", u"fi"));
}

TEST(SearchText, CaseAndSpellingDoNotMatterButMarksDo)
{
    struct Row {
        QString text;
        QString part;
        bool isFound;
    };
    const std::array rows{
        Row{u"Музыкальный плеер"_s, u"ПЛЕЕР"_s, true},
        Row{u"Музыкальный плеер"_s, u" "_s, true},
        Row{u"Музыкальный плеер"_s, u"плеер "_s, false},
        Row{u"Музыкальный плеер"_s, u""_s, true},
        Row{u""_s, u"п"_s, false},
        Row{u"Мой"_s, u"мои\u0306"_s, true},
        Row{u"Мои\u0306"_s, u"МОЙ"_s, true},
        Row{u"Мой"_s, u"мои"_s, false},
        Row{u"Мои\u0306"_s, u"мои"_s, false},
        Row{u"q\u0306"_s, u"q"_s, false},
        Row{u"q\u0306 q"_s, u"q"_s, true},
        Row{u"q\u0306"_s, u"\u0306"_s, false},
        Row{u"Ёлка"_s, u"елка"_s, false},
        Row{u"Straße"_s, u"STRASSE"_s, true},
        Row{u"TITLE"_s, u"title"_s, true},
    };

    for (const auto& [text, part, isFound] : rows) {
        SCOPED_TRACE(text.toStdString() + " / " + part.toStdString());
        EXPECT_EQ(
            SearchText(text, LetterCase::Common).contains(SearchText(part, LetterCase::Common)), isFound);
    }
}

TEST(SearchText, TurkicLettersHaveTheirOwnCapitals)
{
    const auto contains = [](const QString& text, const QString& part) {
        return SearchText(text, LetterCase::Turkic).contains(SearchText(part, LetterCase::Turkic));
    };

    EXPECT_TRUE(contains(u"İstanbul"_s, u"istanbul"_s));
    EXPECT_TRUE(contains(u"I\u0307stanbul"_s, u"istanbul"_s));
    EXPECT_TRUE(contains(u"IRMAK"_s, u"ırmak"_s));
    EXPECT_FALSE(contains(u"TITLE"_s, u"title"_s));
}

} // namespace
