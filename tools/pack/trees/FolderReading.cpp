#include "pack/trees/FolderReading.h"

#include "platform/BundleLayout.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

/// Whether a file of this name is made by a desktop and belongs to no application.
bool isLitter(const std::string& name)
{
    constexpr std::array<std::string_view, 6> names{
        ".DS_Store", "__MACOSX", "Thumbs.db", "desktop.ini", ".directory", ".localized"};
    return name.starts_with("._") || std::ranges::find(names, name) != names.end();
}

class FolderReader {
public:
    FolderReader(Path folder, Place place, Findings& findings)
        : m_folder(std::move(folder)), m_place(std::move(place)), m_findings(findings)
    {
    }

    void read(const Path& folder)
    {
        std::error_code error;
        for (fs::directory_iterator entry(m_folder / folder, error), end; !error && entry != end;
             entry.increment(error)) {
            const Path name = folder / entry->path().filename();
            if (isLitter(name.filename()))
                tell(Code::Litter, name, u"is left by a desktop, and left out"_s);
            else
                readNode(*entry, name);
        }
        if (error)
            tellUnreadable(folder, error);
    }

    Tree takeTree() { return std::move(m_tree); }

private:
    void readNode(const fs::directory_entry& entry, const Path& name)
    {
        using fs::perms;
        std::error_code error;
        const fs::file_status status = entry.symlink_status(error);
        const auto has = [&](perms some) { return (status.permissions() & some) != perms::none; };
        TreeNode& node = m_tree.nodes[name];
        switch (status.type()) {
        case fs::file_type::directory:
            node.kind = TreeNode::Kind::Folder;
            read(name);
            break;
        case fs::file_type::symlink:
            node.kind = TreeNode::Kind::Link;
            node.target = fs::read_symlink(entry.path(), error);
            break;
        case fs::file_type::regular:
            node.kind = TreeNode::Kind::File;
            node.isExecutable = has(perms::owner_exec);
            node.setsID = has(perms::set_uid | perms::set_gid);
            node.size = qint64(entry.file_size(error));
            node.written = entry.last_write_time(error);
            node.head = beginning(entry.path(), headSize, error);
            if (name == bundle_layout::infoList({}) && node.size <= largestInfoList)
                m_tree.infoList = beginning(entry.path(), node.size, error);
            break;
        default:
            break;
        }
        if (error)
            tellUnreadable(name, error);
    }

    static QByteArray beginning(const Path& file, qint64 size, std::error_code& error)
    {
        QByteArray bytes(size, '\0');
        // Not by Qt, which knows no names that are not UTF-8.
        std::ifstream stream(file, std::ios::binary);
        if (!stream.read(bytes.data(), size) && !stream.eof())
            error = {errno, std::generic_category()};
        bytes.truncate(stream.gcount());
        return bytes;
    }

    void tellUnreadable(const Path& name, const std::error_code& error)
    {
        tell(Code::Unreadable, name, u"cannot be read: "_s + QString::fromStdString(error.message()));
    }

    void tell(Code code, const Path& name, const QString& what)
    {
        m_findings.push_back({.code = code,
            .place = m_place,
            .message = u"%1 %2"_s.arg(toText(name), what),
            .found = toText(name)});
    }

    Path m_folder;
    Place m_place;
    Findings& m_findings;
    Tree m_tree;
};

} // namespace

Tree readTree(const Path& folder, const Place& place, Findings& findings)
{
    FolderReader reader(folder, place, findings);
    reader.read({});
    return reader.takeTree();
}
