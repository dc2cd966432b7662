#pragma once

#include <QString>

#include <cstddef>
#include <set>

/// Whether two texts are the same under canonical equivalence (Unicode Standard Annex #15): composed and
/// decomposed «й» are. Any thread.
bool canonicallyEqual(QStringView left, QStringView right);

/// A hash that canonically equal texts share. Any thread.
std::size_t canonicalHash(QStringView text);

/// An order in which canonically equal texts are one.
struct CanonicalOrder {
    bool operator()(const QString& left, const QString& right) const;
};

/// A set of texts; canonically equal ones are the same element.
using TextSet = std::set<QString, CanonicalOrder>;

/// Which letters count as the capital and the small form of one.
enum class LetterCase {
    Common,
    /// Turkish and Azeri: İ belongs to i, and I to ı.
    Turkic,
};

/// What is usual in the user's locale, that of `LC_ALL`, `LC_CTYPE` or `LANG`, the first that is set. Any
/// thread as long as none changes the environment.
LetterCase userLetterCase();

/// A text made ready for searching: letter case and canonically equivalent spellings no longer matter;
/// accents and other marks do. Making one costs far more than a search in it. Any thread.
class SearchText {
public:
    explicit SearchText(QStringView text, LetterCase letterCase = userLetterCase());

    /// Whether `part` occurs here, beginning and ending between whole characters: «и» does not occur in «й»,
    /// however it is spelled. An empty part occurs everywhere.
    bool contains(const SearchText& part) const;

private:
    QString m_folded;
};
