#include "platform/Text.h"

#include <QHashFunctions>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/unorm.h>
#include <unicode/utf16.h>

#include <algorithm>
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

bool isAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 0x80; });
}

/// As `text.find(part, from)`, which looks at one unit at a time where Qt looks at many.
std::size_t positionOf(std::u16string_view part, std::u16string_view text, std::size_t from)
{
    const QStringView units(text.data(), qsizetype(text.size()));
    for (qsizetype at = units.indexOf(QChar(part[0]), qsizetype(from)); at >= 0;
         at = units.indexOf(QChar(part[0]), at + 1)) {
        if (text.substr(std::size_t(at)).starts_with(part))
            return std::size_t(at);
    }
    return std::u16string_view::npos;
}

/// Most characters are told at a glance: no mark lies below U+0300 or among the letters of Cyrillic.
bool isMarkAt(std::u16string_view text, std::size_t position)
{
    const char16_t unit = text[position];
    if (unit < 0x0300 || (unit >= 0x0400 && unit < 0x0483))
        return false;
    UChar32 character = 0;
    U16_GET(text, 0, position, text.size(), character);
    return (U_GET_GC_MASK(character) & U_GC_M_MASK) != 0;
}

} // namespace

bool canonicallyEqual(QStringView left, QStringView right)
{
    // No text of ASCII is another spelling of another one, as most identifiers show.
    return left == right || (!(isAscii(left) && isAscii(right)) && canonicalComparison(left, right) == 0);
}

std::size_t canonicalHash(QStringView text)
{
    if (isAscii(text))
        return qHash(text);
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString alias = aliasOf(text);
    return composition().isNormalized(alias, status) ? qHash(text) : qHash(viewOf(composed(alias)));
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
    m_folded.assign(folded.getBuffer(), static_cast<std::size_t>(folded.length()));
}

void SearchText::prefetch() const
{
    constexpr std::size_t cacheLine = 64 / sizeof(char16_t);
    for (std::size_t at = 0; at < std::min(m_folded.size(), 2 * cacheLine); at += cacheLine)
        __builtin_prefetch(&m_folded[at]);
}

bool SearchText::contains(const SearchText& part) const
{
    const std::u16string_view text = m_folded;
    const std::u16string_view sought = part.m_folded;
    if (sought.empty())
        return true;

    const bool beginsWithMark = isMarkAt(sought, 0);
    for (auto at = positionOf(sought, text, 0); at != std::u16string_view::npos;
         at = positionOf(sought, text, at + 1)) {
        const std::size_t end = at + sought.size();
        const bool splitsFirst = beginsWithMark && at > 0;
        const bool splitsLast = end < text.size() && isMarkAt(text, end);
        if (!splitsFirst && !splitsLast)
            return true;
    }
    return false;
}
