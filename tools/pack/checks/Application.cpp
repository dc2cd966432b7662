#include "pack/checks/Application.h"

#include "pack/checks/TreeCheck.h"
#include "platform/posix/PropertyList.h"

#include <QVersionNumber>
#include <QtEndian>

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

/// The name of a Mach-O processor type; null for one that no catalog names.
QString machProcessor(quint32 type)
{
    switch (type) {
    case 0x01000007:
        return u"x86_64"_s;
    case 0x0100000c:
        return u"arm64"_s;
    default:
        return {};
    }
}

QString elfProcessor(quint16 machine)
{
    switch (machine) {
    case 62:
        return u"x86_64"_s;
    case 183:
        return u"arm64"_s;
    default:
        return {};
    }
}

template <class Number>
Number bigEndianAt(const QByteArray& bytes, qsizetype place)
{
    return place + qsizetype(sizeof(Number)) <= bytes.size()
        ? qFromBigEndian<Number>(bytes.constData() + place)
        : Number();
}

template <class Number>
Number littleEndianAt(const QByteArray& bytes, qsizetype place)
{
    return place + qsizetype(sizeof(Number)) <= bytes.size()
        ? qFromLittleEndian<Number>(bytes.constData() + place)
        : Number();
}

QStringList withoutNull(const QString& text)
{
    return text.isNull() ? QStringList() : QStringList(text);
}

/// The processors of the parts of a universal file (Mach-O): a table of 20 or 32 bytes a part.
QStringList universalProcessors(const QByteArray& head, qsizetype partSize)
{
    constexpr quint32 mostParts = 15;
    QStringList result;
    const quint32 parts = std::min(bigEndianAt<quint32>(head, 4), mostParts);
    for (quint32 part = 0; part < parts; ++part)
        result += withoutNull(machProcessor(bigEndianAt<quint32>(head, 8 + qsizetype(part) * partSize)));
    return result;
}

void checkProcessors(
    const QStringList& processors, const StoreApp& app, const Place& place, Findings& findings)
{
    const QStringList named = app.architecture.split(u' ', Qt::SkipEmptyParts);
    const bool same =
        std::ranges::all_of(processors, [&](const QString& one) { return named.contains(one); });
    if (!same)
        findings.push_back({Code::ArchitectureDiffers, place,
            u"the catalog says \"%1\", and the program is built for \"%2\""_s.arg(
                app.architecture, processors.join(u' ')),
            app.architecture, processors.join(u' ')});
}

QVersionNumber versionOf(const QString& text)
{
    return QVersionNumber::fromString(text).normalized();
}

} // namespace

std::optional<ApplicationInfo> readInfo(const Tree& tree)
{
    const auto texts = propertyListTexts(std::as_bytes(std::span(tree.infoList)),
        {"CFBundleIdentifier"_L1, "CFBundleShortVersionString"_L1, "LSMinimumSystemVersion"_L1,
            "CFBundleExecutable"_L1, "CFBundleIconFile"_L1});
    if (!texts)
        return std::nullopt;
    return ApplicationInfo{texts->at(0), texts->at(1), texts->at(2), texts->at(3), texts->at(4)};
}

std::optional<QStringList> processorsOf(const QByteArray& head)
{
    if (head.startsWith("#!"))
        return QStringList();
    if (head.startsWith("\x7f"
                        "ELF")) {
        const bool isLittleEndian = head.size() > 5 && head[5] == 1;
        return withoutNull(elfProcessor(
            isLittleEndian ? littleEndianAt<quint16>(head, 18) : bigEndianAt<quint16>(head, 18)));
    }
    switch (bigEndianAt<quint32>(head, 0)) {
    case 0xcafebabe:
        return universalProcessors(head, 20);
    case 0xcafebabf:
        return universalProcessors(head, 32);
    case 0xcefaedfe:
    case 0xcffaedfe:
        return withoutNull(machProcessor(littleEndianAt<quint32>(head, 4)));
    default:
        return std::nullopt;
    }
}

const TreeNode* executableOf(const Tree& tree, const ApplicationInfo& info)
{
    if (info.executable.isEmpty())
        return nullptr;
    const auto place = resolve(tree, "Contents/MacOS/" + info.executable.toStdString());
    const auto node = tree.nodes.find(place.name);
    if (place.end != Resolved::End::Found || node == tree.nodes.end()
        || node->second.kind != TreeNode::Kind::File)
        return nullptr;
    return &node->second;
}

void checkProgram(const Tree& tree, const Place& place, Findings& findings)
{
    const auto info = readInfo(tree);
    if (!info) {
        findings.push_back({Code::PlistUnreadable, place, u"Contents/Info.plist cannot be read"_s, {}, {}});
        return;
    }
    const TreeNode* const program = executableOf(tree, *info);
    const QString name = "Contents/MacOS/"_L1 + info->executable;
    if (!program) {
        findings.push_back({Code::ExecutableMissing, place, u"there is no program %1"_s.arg(name), name, {}});
        return;
    }
    if (!program->isExecutable)
        findings.push_back(
            {Code::ExecutableMode, place, u"%1 is not allowed to run (chmod +x)"_s.arg(name), {}, {}});
    if (!processorsOf(program->head))
        findings.push_back(
            {Code::NotAProgram, place, u"%1 is neither a program nor a script"_s.arg(name), {}, {}});
}

void checkApplication(const Tree& tree, const StoreApp& app, const Place& place, Findings& findings)
{
    checkTree(tree, place, findings);
    checkProgram(tree, place, findings);
    const auto info = readInfo(tree);
    if (!info)
        return;

    if (info->identifier != app.bundleID)
        findings.push_back({Code::BundleIdDiffers, place,
            u"the catalog says \"%1\", and the application \"%2\""_s.arg(app.bundleID, info->identifier),
            app.bundleID, info->identifier});
    if (info->version != app.version)
        findings.push_back({Code::VersionDiffers, place,
            u"the catalog says version \"%1\", and the application \"%2\""_s.arg(app.version, info->version),
            app.version, info->version});
    if (!info->minimum.isEmpty() && versionOf(info->minimum) != versionOf(app.minimum))
        findings.push_back({Code::MinimumDiffers, place,
            u"the catalog says macOS \"%1\", and the application \"%2\""_s.arg(app.minimum, info->minimum),
            app.minimum, info->minimum});
    const TreeNode* const program = executableOf(tree, *info);
    if (const auto processors = program ? processorsOf(program->head) : std::nullopt)
        checkProcessors(*processors, app, place, findings);
}
