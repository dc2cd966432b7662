#pragma once

#include <QLocale>

/// Writes numbers of bytes for the user's eyes, in decimal units (1 kB = 1000 bytes) and in the conventions
/// of a locale, the unit behind a space that does not break: whole bytes and kilobytes, megabytes to at most
/// one decimal, larger units to at most two. The unit is the smallest one in which the rounded number stays
/// below 1000. Immutable; any thread.
class ByteCountFormatter {
public:
    explicit ByteCountFormatter(const QLocale& locale);

    QString string(qint64 bytes) const;

private:
    QLocale m_locale;
};

/// The same in the user's locale, that of `LC_ALL`, `LC_NUMERIC` or `LANG` when it is first asked for. Any
/// thread.
QString formatByteCount(qint64 bytes);
