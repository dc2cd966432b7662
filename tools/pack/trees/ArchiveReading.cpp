#include "pack/trees/ArchiveReading.h"

#include <QStringList>

#include <archive.h>
#include <archive_entry.h>

#include <climits>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t readBlock = 262144;

/// An archive may unpack to this many times its size, and to this many bytes.
constexpr qint64 largestRatio = 1000;
constexpr qint64 largestContent = qint64(64) << 30;

struct CloseReader {
    void operator()(archive* zip) const { archive_read_free(zip); }
};

class ZipReader {
public:
    ZipReader(const Path& file, std::string top, Place place, Findings& findings)
        : m_zip(archive_read_new())
        , m_file(file)
        , m_top(std::move(top))
        , m_place(std::move(place))
        , m_findings(findings)
    {
    }

    Tree read()
    {
        archive_read_support_format_zip_seekable(m_zip.get());
        std::error_code error;
        const auto size = qint64(std::filesystem::file_size(m_file, error));
        m_room = error ? 0 : std::min(largestContent, std::max<qint64>(size, 1024) * largestRatio);

        int status = archive_read_open_filename(m_zip.get(), m_file.c_str(), readBlock);
        archive_entry* entry = nullptr;
        while (status == ARCHIVE_OK) {
            status = archive_read_next_header(m_zip.get(), &entry);
            // A header that only warns has a name in another encoding, which is told as such.
            if (status == ARCHIVE_OK || status == ARCHIVE_WARN)
                status = add(entry);
        }
        if (m_room < 0)
            tell(Code::ArchiveBomb,
                u"it unpacks to more than %1 times its size, or than 64 GiB"_s.arg(largestRatio));
        else if (status != ARCHIVE_EOF)
            tell(Code::ArchiveDamaged,
                u"it does not unpack: %1"_s.arg(
                    m_fault.isNull() ? QString::fromUtf8(archive_error_string(m_zip.get())) : m_fault));
        if (!m_strangers.isEmpty())
            tell(Code::ArchiveShape,
                u"it must hold only the folder %1, and holds %2"_s.arg(
                    QString::fromStdString(m_top), m_strangers.join(u", "_s)),
                QString::fromStdString(m_top), m_strangers.join(u", "_s));
        return std::move(m_tree);
    }

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
        m_entrySize = 0;
        QByteArray content;
        const bool isList = whole == m_top + "/Contents/Info.plist";
        const int status = node.kind == TreeNode::Kind::File
            ? readContent(content, isList ? largestInfoList : headSize)
            : ARCHIVE_OK;
        node.size = m_entrySize;
        node.head = content.first(std::min<qsizetype>(content.size(), headSize));
        if (isList)
            m_tree.infoList = content;

        const auto name = inTop(whole);
        if (!name || (!name->empty() && !m_tree.nodes.emplace(*name, std::move(node)).second))
            addStranger(whole);
        return status;
    }

    static TreeNode nodeOf(archive_entry* entry)
    {
        TreeNode node;
        const auto mode = archive_entry_mode(entry);
        node.isExecutable = (mode & S_IXUSR) != 0;
        node.setsID = S_ISREG(mode) && (mode & (S_ISUID | S_ISGID)) != 0;
        switch (archive_entry_filetype(entry)) {
        case AE_IFDIR:
            node.kind = TreeNode::Kind::Folder;
            break;
        case AE_IFREG:
            node.kind = TreeNode::Kind::File;
            break;
        case AE_IFLNK:
            node.kind = TreeNode::Kind::Link;
            if (const char* const target = archive_entry_symlink_utf8(entry))
                node.target = target;
            break;
        default:
            break;
        }
        return node;
    }

    int refuse(const std::string& name, const QString& why)
    {
        m_fault = QString::fromStdString(name) + u' ' + why;
        return ARCHIVE_FATAL;
    }

    /// Reads a file through and keeps its beginning.
    int readContent(QByteArray& content, qint64 kept)
    {
        la_ssize_t length = 0;
        while ((length = archive_read_data(m_zip.get(), m_block.data(), m_block.size())) > 0) {
            m_entrySize += length;
            m_room -= length;
            content.append(m_block.data(), std::min<qint64>(length, kept - content.size()));
            if (m_room < 0)
                return ARCHIVE_FATAL;
        }
        return length < 0 ? int(length) : ARCHIVE_OK;
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

    void addStranger(const std::string& name)
    {
        constexpr qsizetype mostNamed = 3;
        if (m_strangers.size() < mostNamed)
            m_strangers.append(QString::fromStdString(name));
    }

    void tell(Code code, const QString& message, const QString& expected = {}, const QString& found = {})
    {
        m_findings.push_back({code, m_place, message, expected, found});
    }

    std::unique_ptr<archive, CloseReader> m_zip;
    Path m_file;
    std::string m_top;
    Place m_place;
    Findings& m_findings;
    Tree m_tree;
    std::vector<char> m_block = std::vector<char>(readBlock);
    /// Why the reading was given up; null when the library did so.
    QString m_fault;
    /// Names that lie outside of the top folder, or occur twice.
    QStringList m_strangers;
    /// How many more bytes may be unpacked.
    qint64 m_room = 0;
    qint64 m_entrySize = 0;
};

} // namespace

Tree readArchive(const Path& file, const std::string& top, const Place& place, Findings& findings)
{
    return ZipReader(file, top, place, findings).read();
}
