#include "pack/trees/ArchiveReading.h"

#include "platform/BundleLayout.h"

#include <QStringList>

#include <archive.h>
#include <archive_entry.h>

#include <climits>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t readBlock = 262144;

/// An archive may unpack to this many times its size, and to this many bytes.
constexpr qint64 largestRatio = 1000;
constexpr qint64 largestContent = qint64(64) << 30;

TreeNode nodeOf(archive_entry* entry)
{
    TreeNode node;
    const auto mode = archive_entry_mode(entry);
    node.isExecutable = (mode & S_IXUSR) != 0;
    node.setsID = S_ISREG(mode) && (mode & (S_ISUID | S_ISGID)) != 0;
    if (S_ISDIR(mode))
        node.kind = TreeNode::Kind::Folder;
    else if (S_ISREG(mode))
        node.kind = TreeNode::Kind::File;
    else if (S_ISLNK(mode))
        node.kind = TreeNode::Kind::Link;
    if (const char* const target = archive_entry_symlink_utf8(entry))
        node.target = target;
    return node;
}

class ZipReader {
public:
    ZipReader(const Path& file, std::string top)
        : m_zip(archive_read_new(), &archive_read_free), m_top(std::move(top))
    {
        std::error_code error;
        const auto size = qint64(std::filesystem::file_size(file, error));
        m_room = error ? 0 : std::min(largestContent, std::max<qint64>(size, 1024) * largestRatio);
        archive_read_support_format_zip_seekable(m_zip.get());
        int status = archive_read_open_filename(m_zip.get(), file.c_str(), readBlock);
        archive_entry* entry = nullptr;
        while (status == ARCHIVE_OK) {
            status = archive_read_next_header(m_zip.get(), &entry);
            // A header that only warns has a name in another encoding, which is told as such.
            if (status == ARCHIVE_OK || status == ARCHIVE_WARN)
                status = add(entry);
        }
        if (status != ARCHIVE_EOF && m_fault.isNull())
            m_fault = QString::fromUtf8(archive_error_string(m_zip.get()));
    }

    void tell(const Place& place, Findings& findings) const
    {
        if (m_room < 0)
            findings.push_back({.code = Code::ArchiveBomb,
                .place = place,
                .message = u"it unpacks to more than %1 times its size, or than 64 GiB"_s.arg(largestRatio)});
        else if (!m_fault.isNull())
            findings.push_back({.code = Code::ArchiveDamaged,
                .place = place,
                .message = u"it does not unpack: %1"_s.arg(m_fault)});
        const QString top = QString::fromStdString(m_top);
        const QString strangers = m_strangers.mid(0, 3).join(u", "_s);
        if (!strangers.isEmpty())
            findings.push_back({.code = Code::ArchiveShape,
                .place = place,
                .message = u"it must hold only the folder %1, and holds %2"_s.arg(top, strangers),
                .expected = top,
                .found = strangers});
    }

    Tree takeTree() { return std::move(m_tree); }

private:
    int add(archive_entry* entry)
    {
        const char* const utf8 = archive_entry_pathname_utf8(entry);
        const char* const raw = archive_entry_pathname(entry);
        const std::string whole = utf8 ? utf8 : raw ? raw : "";
        TreeNode node = nodeOf(entry);
        // Other methods unpack only in some programs, and may want gigabytes of memory.
        const std::string_view format = archive_format_name(m_zip.get());
        if (!format.ends_with("(uncompressed)") && !format.ends_with("(deflation)"))
            return refuse(whole, u"is neither stored nor deflated"_s);
        if (node.target.size() >= PATH_MAX)
            return refuse(whole, u"leads to a place with too long a name"_s);
        int status = ARCHIVE_OK;
        if (node.kind == TreeNode::Kind::File) {
            const bool isList = whole == bundle_layout::infoList(m_top);
            const QByteArray content = readContent(isList ? largestInfoList : headSize, node.size, status);
            node.head = content.left(headSize);
            if (isList)
                m_tree.infoList = content;
        }
        const auto name = inTop(whole);
        if (!name || (!name->empty() && !m_tree.nodes.emplace(*name, std::move(node)).second))
            m_strangers.append(QString::fromStdString(whole));
        return status;
    }

    int refuse(const std::string& name, const QString& why)
    {
        m_fault = QString::fromStdString(name) + u' ' + why;
        return ARCHIVE_FATAL;
    }

    /// Reads a file through and keeps its beginning.
    QByteArray readContent(qint64 kept, qint64& size, int& status)
    {
        QByteArray beginning;
        la_ssize_t length = 0;
        while (m_room >= 0
            && (length = archive_read_data(m_zip.get(), m_block.data(), std::size_t(m_block.size()))) > 0) {
            size += length;
            m_room -= length;
            beginning.append(m_block.constData(), std::min<qint64>(length, kept - beginning.size()));
        }
        status = m_room < 0 ? ARCHIVE_FATAL : int(length);
        return beginning;
    }

    /// The name below the one top folder, empty for that itself; none when it lies elsewhere.
    std::optional<std::string> inTop(const std::string& whole) const
    {
        const std::string name = whole.ends_with('/') ? whole.substr(0, whole.size() - 1) : whole;
        if (name == m_top)
            return "";
        const Path path(name);
        if (!name.starts_with(m_top + '/') || path.lexically_normal() != path)
            return std::nullopt;
        return name.substr(m_top.size() + 1);
    }

    std::unique_ptr<archive, decltype(&archive_read_free)> m_zip;
    std::string m_top;
    Tree m_tree;
    QByteArray m_block{readBlock, '\0'};
    /// Why it does not unpack; null when it does.
    QString m_fault;
    /// Names that lie outside of the top folder, or occur twice.
    QStringList m_strangers;
    /// How many more bytes may be unpacked.
    qint64 m_room = 0;
};

} // namespace

Tree readArchive(const Path& file, const std::string& top, const Place& place, Findings& findings)
{
    ZipReader reader(file, top);
    reader.tell(place, findings);
    return reader.takeTree();
}
