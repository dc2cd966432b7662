#include "pack/checks/TreeCheck.h"

#include "pack/checks/EntryRules.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

void checkTree(const Tree& tree, const Place& place, Findings& findings)
{
    QHash<QString, QString> folded;
    for (const auto& [name, node] : tree.nodes) {
        const QString shown = QString::fromStdString(name);
        const auto tell = [&](Code code, const QString& what, const QString& found) {
            findings.push_back(
                {.code = code, .place = place, .message = u"%1 %2"_s.arg(shown, what), .found = found});
        };
        if (!QByteArrayView(name).isValidUtf8())
            tell(Code::NameNotUtf8, u"is no UTF-8 name"_s, shown);
        if (std::ranges::any_of(name, [](char byte) { return uchar(byte) < 0x20 || byte == 0x7f; }))
            tell(Code::NameControl, u"has a control character in its name"_s, shown);
        if (name.find('\\') != std::string::npos)
            tell(Code::NameBackslash, u"has a backslash in its name"_s, shown);
        const auto first = folded.constFind(foldedName(shown));
        if (first != folded.constEnd())
            tell(Code::NamesDifferByCase, u"differs from %1 only by letter case"_s.arg(*first), shown);
        else
            folded.insert(foldedName(shown), shown);
        if (node.kind == TreeNode::Kind::Other)
            tell(Code::SpecialFile, u"is no file, folder or link"_s, shown);
        if (node.setsID)
            tell(Code::SetId, u"sets the user or the group that it runs as, which is left out"_s, shown);
        if (node.kind != TreeNode::Kind::Link)
            continue;
        const QString target = QString::fromStdString(node.target);
        const auto end = resolve(tree, name).end;
        if (end == Resolved::End::Outside)
            tell(Code::LinkOutside, u"leads out of the application, to %1"_s.arg(target), target);
        else if (end == Resolved::End::Missing)
            tell(Code::LinkDangling, u"leads to %1, where nothing is"_s.arg(target), target);
    }
}
