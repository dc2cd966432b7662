#include "pack/bundles/Source.h"

#include "pack/checks/Application.h"
#include "pack/checks/PictureSizes.h"
#include "pack/pictures/Pictures.h"

#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QSysInfo>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr qsizetype longestText = 200;

/// The program that a script's first line names, also when `env` looks for it.
QString interpreterOf(const QByteArray& head)
{
    const QByteArray line = head.sliced(2).split('\n').front();
    const QStringList words = QString::fromUtf8(line).simplified().split(u' ');
    const qsizetype place = !words[0].endsWith("/env"_L1) ? 0 : words.value(1) == "-S"_L1 ? 2 : 1;
    return words.value(place);
}

/// Whether this machine can run what begins like this.
void checkStart(const QByteArray& head, const Place& place, Findings& findings)
{
    const auto processors = processorsOf(head);
    if (!processors) {
        findings.push_back({.code = Code::SourceUnusable,
            .place = place,
            .message = u"it is neither a program nor a script"_s});
    } else if (head.startsWith("#!")) {
        const QString interpreter = interpreterOf(head);
        if (QStandardPaths::findExecutable(interpreter).isEmpty())
            findings.push_back({.code = Code::InterpreterMissing,
                .place = place,
                .message = u"it runs by \"%1\", which is not here"_s.arg(interpreter)});
    } else if (!processors->contains(QSysInfo::currentCpuArchitecture())) {
        const QString others = processors->isEmpty() ? u"unknown"_s : processors->join(u' ');
        findings.push_back({.code = Code::MachineDiffers,
            .place = place,
            .message = u"it is built for another machine than this one: %1"_s.arg(others)});
    }
}

void readProgram(const Path& file, const Place& place, Findings& findings)
{
    std::error_code error;
    const auto status = fs::status(file, error);
    QFile program(file);
    if (fs::exists(status) && !fs::is_regular_file(status))
        findings.push_back({.code = Code::SourceUnusable, .place = place, .message = u"it is no file"_s});
    else if (!program.open(QIODevice::ReadOnly))
        findings.push_back({.code = Code::SourceUnusable, .place = place, .message = program.errorString()});
    else
        checkStart(program.read(headSize), place, findings);
}

/// Whether the text can stand in an Info.plist and in an archive's name.
void checkText(
    const QString& text, const QString& option, const char* form, const Place& place, Findings& findings)
{
    if (text.isEmpty())
        findings.push_back({.code = Code::OptionMissing,
            .place = place,
            .message = u"nothing tells its %1: --%1 gives it"_s.arg(option),
            .expected = "--"_L1 + option});
    else if (!text.contains(QRegularExpression(QString::fromLatin1(form))) || text.size() > longestText)
        findings.push_back({.code = Code::ValueForm,
            .place = place,
            .message = u"\"%1\" cannot be a bundle's: --%2 gives another"_s.arg(text, option),
            .found = text});
}

QByteArray readIcon(const Path& file, const Place& place, Findings& findings)
{
    if (file.empty()) {
        findings.push_back({.code = Code::IconMissing,
            .place = place,
            .message = u"nothing tells its icon: --icon gives it"_s,
            .expected = u"--icon"_s});
        return {};
    }
    Findings found;
    const auto picture = readPicture(file, {.file = toText(file)}, found);
    if (picture)
        checkPicture(*picture, picture_size::smallestIcon, Square::Wanted, found);
    findings.insert(findings.end(), found.begin(), found.end());
    return picture && !hasErrors(found) ? iconSet(*picture) : QByteArray();
}

} // namespace

Source readSource(const SourceOrder& order, Findings& findings)
{
    const Place place{.file = toText(order.source)};
    readProgram(order.source, place, findings);
    Source source{order.source, order.identifier, order.version, order.name, {}};
    if (source.name.isEmpty()) {
        source.name = toText(order.source.stem());
        findings.push_back({.code = Code::Guessed,
            .place = place,
            .message = u"the name \"%1\" is taken from the file's name"_s.arg(source.name),
            .found = source.name});
    }
    checkText(source.identifier, u"id"_s, "\\A[A-Za-z0-9._-]+\\z", place, findings);
    checkText(source.version, u"version"_s, "\\A[^/\\pC]+\\z", place, findings);
    checkText(source.name, u"name"_s, "\\A[^/\\pC]+\\z", place, findings);
    source.icon = readIcon(order.icon, place, findings);
    return source;
}
