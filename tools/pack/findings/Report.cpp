#include "pack/findings/Report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

QString latin(std::string_view text)
{
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

QString severityText(Code code)
{
    switch (severityOf(code)) {
    case Severity::Error:
        return u"error"_s;
    case Severity::Warning:
        return u"warning"_s;
    case Severity::Note:
        return u"note"_s;
    }
    return {};
}

QString counted(qsizetype count, const QString& what)
{
    return u"%1 %2%3"_s.arg(count).arg(what, count == 1 ? u""_s : u"s"_s);
}

QString asLine(const Finding& finding)
{
    const auto& [code, place, message, expected, found] = finding;
    QString where = place.file;
    if (place.line > 0)
        where += u':' + QString::number(place.line);
    // A name in it may hold anything, and what is found stays one line.
    QString line = u"%1: %2: %3 [%4]"_s.arg(where, severityText(code), message, latin(codeText(code)));
    for (QChar& character : line) {
        if (character.category() == QChar::Other_Control)
            character = u'?';
    }
    return line;
}

QJsonValue orNull(const QString& text)
{
    return text.isNull() ? QJsonValue() : QJsonValue(text);
}

QJsonObject asObject(const Finding& finding)
{
    return {
        {u"code"_s, latin(codeText(finding.code))},
        {u"severity"_s, severityText(finding.code)},
        {u"file"_s, orNull(finding.place.file)},
        {u"line"_s, finding.place.line > 0 ? QJsonValue(finding.place.line) : QJsonValue()},
        {u"entry"_s, orNull(finding.place.entry)},
        {u"message"_s, finding.message},
        {u"expected"_s, orNull(finding.expected)},
        {u"found"_s, orNull(finding.found)},
    };
}

void writeText(const Findings& findings)
{
    const auto count = [&](Severity severity) {
        return std::ranges::count(
            findings, severity, [](const Finding& finding) { return severityOf(finding.code); });
    };
    for (const Finding& finding : findings)
        std::printf("%s\n", qUtf8Printable(asLine(finding)));
    std::printf("%s, %s\n", qUtf8Printable(counted(count(Severity::Error), u"error"_s)),
        qUtf8Printable(counted(count(Severity::Warning), u"warning"_s)));
}

void writeJson(const Path& subject, const Findings& findings, const Catalog& entries)
{
    QJsonArray list;
    for (const Finding& finding : findings)
        list.append(asObject(finding));
    QJsonArray archives;
    for (const StoreApp& app : entries) {
        const bool isPacked = !app.sha256.isNull();
        archives.append(QJsonObject{
            {u"name"_s, app.name},
            {u"version"_s, app.version},
            {u"archive"_s, app.archive},
            {u"bytes"_s, isPacked ? QJsonValue(app.bytes) : QJsonValue()},
            {u"sha256"_s, orNull(app.sha256)},
        });
    }
    const QJsonObject object{
        {u"format"_s, 1}, {u"subject"_s, toText(subject)}, {u"findings"_s, list}, {u"entries"_s, archives}};
    std::fputs(QJsonDocument(object).toJson().constData(), stdout);
}

} // namespace

int report(const Path& subject, Findings findings, const Catalog& entries, const Reporting& reporting)
{
    std::ranges::stable_sort(findings, {}, [](const Finding& finding) {
        return std::tuple(finding.place.file, finding.place.line, codeText(finding.code));
    });
    if (reporting.format == Format::Json)
        writeJson(subject, findings, entries);
    else
        writeText(findings);
    return hasErrors(findings) || (reporting.strict && !findings.empty()) ? 2 : 0;
}
