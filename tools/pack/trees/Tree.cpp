#include "pack/trees/Tree.h"

#include "pack/checks/EntryRules.h"

#include <QHash>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 6> litterNames{
    ".DS_Store", "__MACOSX", "Thumbs.db", "desktop.ini", ".directory", ".localized"};

constexpr int mostLinks = 40;

bool isUtf8(const std::string& name)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(QByteArrayView(name));
    return !decoder.hasError();
}

QString shown(const std::string& name)
{
    return QString::fromStdString(name);
}

/// The place of `name` in the folder, which is empty for the top.
std::string joined(std::string folder, const std::string& name)
{
    if (!folder.empty())
        folder += '/';
    folder += name;
    return folder;
}

/// Reads the beginning of a file; none when that is not possible.
std::optional<QByteArray> beginning(const Path& file, qint64 size)
{
    const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0)
        return std::nullopt;
    QByteArray bytes(size, Qt::Uninitialized);
    qint64 filled = 0;
    ssize_t length = 0;
    while (
        filled < size && (length = read(descriptor, bytes.data() + filled, std::size_t(size - filled))) > 0)
        filled += length;
    close(descriptor);
    if (length < 0)
        return std::nullopt;
    bytes.truncate(filled);
    return bytes;
}

/// Reads folders one by one into a tree.
class TreeReader {
public:
    TreeReader(Path folder, Place place, Findings& findings)
        : m_folder(std::move(folder)), m_place(std::move(place)), m_findings(findings)
    {
    }

    Tree read()
    {
        readFolder({});
        return std::move(m_tree);
    }

private:
    void readFolder(const std::string& folder)
    {
        std::error_code error;
        for (fs::directory_iterator place(m_folder / folder, error), end; !error && place != end;
             place.increment(error)) {
            const std::string name = place->path().filename().string();
            const std::string inTree = joined(folder, name);
            if (isLitter(name))
                tell(Code::Litter, inTree, u"is left by a desktop, and left out"_s);
            else
                readNode(inTree);
        }
        if (error)
            tell(Code::Unreadable, folder, u"cannot be read: "_s + QString::fromStdString(error.message()));
    }

    void readNode(const std::string& name)
    {
        const Path path = m_folder / name;
        struct stat status { };
        if (lstat(path.c_str(), &status) != 0) {
            tellUnreadable(name);
            return;
        }
        TreeNode& node = m_tree.nodes[name];
        node.setsID = S_ISREG(status.st_mode) && (status.st_mode & (S_ISUID | S_ISGID)) != 0;
        if (S_ISDIR(status.st_mode)) {
            node.kind = TreeNode::Kind::Folder;
            readFolder(name);
        } else if (S_ISLNK(status.st_mode)) {
            node.kind = TreeNode::Kind::Link;
            std::error_code error;
            node.target = fs::read_symlink(path, error).string();
        } else if (S_ISREG(status.st_mode)) {
            node.kind = TreeNode::Kind::File;
            node.isExecutable = (status.st_mode & S_IXUSR) != 0;
            node.size = status.st_size;
            node.written = status.st_mtim;
            const auto head = beginning(path, headSize);
            if (head)
                node.head = *head;
            else
                tellUnreadable(name);
            if (name == "Contents/Info.plist" && node.size <= largestInfoList)
                m_tree.infoList = beginning(path, node.size).value_or(QByteArray());
        }
    }

    void tellUnreadable(const std::string& name)
    {
        tell(Code::Unreadable, name, u"cannot be read: "_s + QString::fromLocal8Bit(std::strerror(errno)));
    }

    void tell(Code code, const std::string& name, const QString& what)
    {
        m_findings.push_back({code, m_place, u"%1 %2"_s.arg(shown(name), what), {}, shown(name)});
    }

    Path m_folder;
    Place m_place;
    Findings& m_findings;
    Tree m_tree;
};

} // namespace

bool isLitter(const std::string& name)
{
    return name.starts_with("._") || std::ranges::find(litterNames, name) != litterNames.end();
}

Resolved resolve(const Tree& tree, const std::string& name)
{
    std::string reached;
    std::string way = name;
    std::size_t gone = 0;
    int links = 0;
    std::size_t lengthOfLinks = 0;
    while (gone < way.size()) {
        const auto slash = std::min(way.find('/', gone), way.size());
        const std::string step = way.substr(gone, slash - gone);
        gone = std::min(slash + 1, way.size());
        if (step.empty() || step == ".")
            continue;
        const auto parent = reached.rfind('/');
        if (step == "..") {
            if (reached.empty())
                return {Resolved::End::Outside, {}};
            reached = parent == std::string::npos ? "" : reached.substr(0, parent);
            continue;
        }
        const std::string next = joined(reached, step);
        const auto node = tree.nodes.find(next);
        if (node == tree.nodes.end()) {
            // The way may lead out behind what is missing.
            const std::string behind = (Path(next) / way.substr(gone)).lexically_normal().string();
            return {behind.starts_with("..") ? Resolved::End::Outside : Resolved::End::Missing, next};
        }
        if (node->second.kind != TreeNode::Kind::Link) {
            reached = next;
            continue;
        }
        if (node->second.target.starts_with('/'))
            return {Resolved::End::Outside, {}};
        lengthOfLinks += node->second.target.size();
        if (++links > mostLinks || lengthOfLinks > PATH_MAX)
            return {Resolved::End::Missing, next};
        way = node->second.target + '/' + way.substr(gone);
        gone = 0;
    }
    return {Resolved::End::Found, reached};
}

Tree readTree(const Path& folder, const Place& place, Findings& findings)
{
    return TreeReader(folder, place, findings).read();
}

void checkTree(const Tree& tree, const Place& place, Findings& findings)
{
    QHash<QString, std::string> folded;
    for (const auto& [name, node] : tree.nodes) {
        const auto tell = [&, shownName = shown(name)](
                              Code code, const QString& what, const QString& found = {}) {
            findings.push_back(
                {code, place, u"%1 %2"_s.arg(shownName, what), {}, found.isNull() ? shownName : found});
        };
        if (!isUtf8(name))
            tell(Code::NameNotUtf8, u"is no UTF-8 name"_s);
        if (std::ranges::any_of(name, [](char byte) { return uchar(byte) < 0x20 || byte == 0x7f; }))
            tell(Code::NameControl, u"has a control character in its name"_s);
        if (name.find('\\') != std::string::npos)
            tell(Code::NameBackslash, u"has a backslash in its name"_s);
        const auto first = folded.constFind(foldedName(shown(name)));
        if (first != folded.constEnd())
            tell(Code::NamesDifferByCase, u"differs from %1 only by letter case"_s.arg(shown(*first)));
        else
            folded.insert(foldedName(shown(name)), name);
        if (node.kind == TreeNode::Kind::Other)
            tell(Code::SpecialFile, u"is no file, folder or link"_s);
        if (node.setsID)
            tell(Code::SetId, u"sets the user or the group that it runs as, which is left out"_s);
        if (node.kind != TreeNode::Kind::Link)
            continue;
        const auto end = resolve(tree, name).end;
        if (end == Resolved::End::Outside)
            tell(Code::LinkOutside, u"leads out of the application, to %1"_s.arg(shown(node.target)),
                shown(node.target));
        else if (end == Resolved::End::Missing)
            tell(Code::LinkDangling, u"leads to %1, where nothing is"_s.arg(shown(node.target)),
                shown(node.target));
    }
}
