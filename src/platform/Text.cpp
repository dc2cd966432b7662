#include "platform/Text.h"

#include <QHashFunctions>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/unorm.h>

#include <cstdlib>
#include <string_view>

namespace {

// Only a pointer to the same units; ICU does not take a null pointer for an empty text.
icu::UnicodeString aliasOf(QStringView text)
{
    return text.isEmpty() ? icu::UnicodeString()
                          : icu::UnicodeString(false, text.utf16(), static_cast<int>(text.size()));
}

QStringView viewOf(const icu::UnicodeString& text)
{
    return {text.getBuffer(), text.length()};
}

const icu::Normalizer2& composition()
{
    UErrorCode status = U_ZERO_ERROR;
    return *icu::Normalizer2::getNFCInstance(status);
}

icu::UnicodeString composed(const icu::UnicodeString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    return composition().normalize(text, status);
}

int canonicalComparison(QStringView left, QStringView right)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString first = aliasOf(left);
    const icu::UnicodeString second = aliasOf(right);
    return unorm_compare(
        first.getBuffer(), first.length(), second.getBuffer(), second.length(), U_FOLD_CASE_DEFAULT, &status);
}

/// Whether no character with its marks is cut in two here.
bool isBetweenCharacters(QStringView text, qsizetype place)
{
    if (place == 0 || place == text.size())
        return true;
    const QStringView rest = text.sliced(place);
    return rest.front().isHighSurrogate() && rest.size() > 1
        ? !QChar::isMark(QChar::surrogateToUcs4(rest[0], rest[1]))
        : !rest.front().isMark();
}

} // namespace

bool canonicallyEqual(QStringView left, QStringView right)
{
    return canonicalComparison(left, right) == 0;
}

std::size_t canonicalHash(QStringView text)
{
    return qHash(viewOf(composed(aliasOf(text))));
}

bool CanonicalOrder::operator()(const QString& left, const QString& right) const
{
    return canonicalComparison(left, right) < 0;
}

LetterCase userLetterCase()
{
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(variable);
        const std::string_view locale = value ? value : "";
        if (locale.empty())
            continue;
        const std::string_view language = locale.substr(0, locale.find_first_of("_.@"));
        return language == "tr" || language == "az" ? LetterCase::Turkic : LetterCase::Common;
    }
    return LetterCase::Common;
}

SearchText::SearchText(QStringView text, LetterCase letterCase)
{
    icu::UnicodeString folded = composed(aliasOf(text));
    folded.foldCase(letterCase == LetterCase::Turkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT);
    folded = composed(folded);
    m_folded = viewOf(folded).toString();
}

bool SearchText::contains(const SearchText& part) const
{
    const QString& sought = part.m_folded;
    for (qsizetype at = m_folded.indexOf(sought); at >= 0; at = m_folded.indexOf(sought, at + 1)) {
        if (isBetweenCharacters(m_folded, at) && isBetweenCharacters(m_folded, at + sought.size()))
            return true;
    }
    return false;
}
