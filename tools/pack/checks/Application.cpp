#include "pack/checks/Application.h"

#include "pack/checks/TreeCheck.h"
#include "platform/BundleLayout.h"
#include "platform/posix/PropertyList.h"

#include <QVersionNumber>
#include <QtEndian>

#include <algorithm>

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

QStringList withoutNull(const QString& text)
{
    return text.isNull() ? QStringList() : QStringList(text);
}

/// The processors of the parts of a universal file (Mach-O): a table of 20 or 32 bytes a part.
QStringList universalProcessors(const char* head, int partSize)
{
    constexpr quint32 mostParts = 15;
    QStringList result;
    const quint32 parts = std::min(qFromBigEndian<quint32>(head + 4), mostParts);
    for (quint32 part = 0; part < parts; ++part)
        result += withoutNull(machProcessor(qFromBigEndian<quint32>(head + 8 + qsizetype(part) * partSize)));
    return result;
}

/// The file at the end of the way; null when none is there.
const Tree::Nodes::value_type* fileAt(const Tree& tree, const Path& way)
{
    const auto place = resolve(tree, way);
    const auto node = tree.nodes.find(place.name);
    const bool isFile = place.end == Resolved::End::Found && node != tree.nodes.end()
        && node->second.kind == TreeNode::Kind::File;
    return isFile ? &*node : nullptr;
}

void checkProcessors(
    const QStringList& processors, const StoreApp& app, const Place& place, Findings& findings)
{
    const QStringList named = app.architecture.split(u' ', Qt::SkipEmptyParts);
    const bool same =
        std::ranges::all_of(processors, [&](const QString& one) { return named.contains(one); });
    if (!same)
        findings.push_back({.code = Code::ArchitectureDiffers,
            .place = place,
            .message = u"the catalog says \"%1\", and the program is built for \"%2\""_s.arg(
                app.architecture, processors.join(u' ')),
            .expected = app.architecture,
            .found = processors.join(u' ')});
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
    const QByteArray padded = head.leftJustified(headSize, '\0');
    const char* const bytes = padded.constData();
    if (head.startsWith("#!"))
        return QStringList();
    if (head.startsWith("\x7f"
                        "ELF")) {
        const bool isLittleEndian = bytes[5] == 1;
        return withoutNull(elfProcessor(
            isLittleEndian ? qFromLittleEndian<quint16>(bytes + 18) : qFromBigEndian<quint16>(bytes + 18)));
    }
    switch (qFromBigEndian<quint32>(bytes)) {
    case 0xcafebabe:
        return universalProcessors(bytes, 20);
    case 0xcafebabf:
        return universalProcessors(bytes, 32);
    case 0xcefaedfe:
    case 0xcffaedfe:
        return withoutNull(machProcessor(qFromLittleEndian<quint32>(bytes + 4)));
    default:
        return std::nullopt;
    }
}

const TreeNode* executableOf(const Tree& tree, const ApplicationInfo& info)
{
    const auto* const file = fileAt(tree, below(bundle_layout::programs({}), info.executable));
    return file ? &file->second : nullptr;
}

std::optional<std::string> iconOf(const Tree& tree, const ApplicationInfo& info)
{
    if (info.iconFile.isEmpty())
        return std::nullopt;
    for (const QString& name : {info.iconFile, info.iconFile + ".icns"_L1}) {
        if (const auto* const file = fileAt(tree, below(bundle_layout::resources({}), name)))
            return file->first;
    }
    return std::nullopt;
}

void checkProgram(const Tree& tree, const Place& place, Findings& findings)
{
    const auto tell = [&](Code code, const QString& message, const QString& expected = {}) {
        findings.push_back({.code = code, .place = place, .message = message, .expected = expected});
    };
    const auto info = readInfo(tree);
    if (!info) {
        tell(Code::PlistUnreadable, u"Contents/Info.plist cannot be read"_s);
        return;
    }
    const TreeNode* const program = executableOf(tree, *info);
    const QString name = toText(below(bundle_layout::programs({}), info->executable));
    if (!program) {
        tell(Code::ExecutableMissing, u"there is no program %1"_s.arg(name), name);
        return;
    }
    if (!program->isExecutable)
        tell(Code::ExecutableMode, u"%1 is not allowed to run (chmod +x)"_s.arg(name));
    if (!processorsOf(program->head))
        tell(Code::NotAProgram, u"%1 is neither a program nor a script"_s.arg(name));
}

void checkApplication(const Tree& tree, const StoreApp& app, const Place& place, Findings& findings)
{
    checkTree(tree, place, findings);
    checkProgram(tree, place, findings);
    const auto info = readInfo(tree);
    if (!info)
        return;

    const auto tell = [&](Code code, const QString& what, const QString& wanted, const QString& given) {
        findings.push_back({.code = code,
            .place = place,
            .message = u"the catalog says %1\"%2\", and the application \"%3\""_s.arg(what, wanted, given),
            .expected = wanted,
            .found = given});
    };
    if (info->identifier != app.bundleID)
        tell(Code::BundleIdDiffers, {}, app.bundleID, info->identifier);
    if (info->version != app.version)
        tell(Code::VersionDiffers, u"version "_s, app.version, info->version);
    if (!info->minimum.isEmpty() && versionOf(info->minimum) != versionOf(app.minimum))
        tell(Code::MinimumDiffers, u"macOS "_s, app.minimum, info->minimum);
    const TreeNode* const program = executableOf(tree, *info);
    if (const auto processors = program ? processorsOf(program->head) : std::nullopt)
        checkProcessors(*processors, app, place, findings);
}
