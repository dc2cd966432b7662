#include "pack/trees/ArchiveWriting.h"

#include "pack/files/FileAccess.h"

#include <QFile>

#include <archive.h>
#include <archive_entry.h>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 writeBlock = 262144;

struct CloseWriter {
    void operator()(archive* zip) const { archive_write_free(zip); }
};

struct EntryDeleter {
    void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};

using Entry = std::unique_ptr<archive_entry, EntryDeleter>;

/// A ZIP archive on its way to a file.
class ZipFile {
public:
    explicit ZipFile(const Path& file) : m_path(file), m_file(file), m_zip(archive_write_new()) { }

    Result<void> open()
    {
        auto* const zip = m_zip.get();
        if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
            || !m_file.setPermissions(readableByAll))
            return cannot("write"_L1, m_path, m_file.errorString());
        if (archive_write_set_format_zip(zip) != ARCHIVE_OK
            || archive_write_set_options(zip, "compression=deflate,compression-level=6,hdrcharset=UTF-8")
                != ARCHIVE_OK
            || archive_write_set_bytes_per_block(zip, writeBlock) != ARCHIVE_OK
            || archive_write_set_bytes_in_last_block(zip, 1) != ARCHIVE_OK
            || archive_write_open2(zip, this, nullptr, &ZipFile::write, nullptr, nullptr) != ARCHIVE_OK)
            return failure();
        return {};
    }

    Result<void> addFolder(const std::string& name)
    {
        const Entry entry = named(name, AE_IFDIR, 0755);
        return addHeader(entry);
    }

    Result<void> addLink(const std::string& name, const std::string& target)
    {
        const Entry entry = named(name, AE_IFLNK, 0777);
        archive_entry_set_symlink_utf8(entry.get(), target.c_str());
        return addHeader(entry);
    }

    /// Whether the file was what `node` says.
    Result<bool> addFile(const std::string& name, const TreeNode& node, const Path& place)
    {
        QFile file(place);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            return cannot("read"_L1, place, file.errorString());
        const Entry entry = named(name, AE_IFREG, node.isExecutable ? 0755 : 0644);
        archive_entry_set_size(entry.get(), node.size);
        if (auto added = addHeader(entry); !added)
            return tl::unexpected(added.error());

        std::vector<char> block(writeBlock);
        qint64 total = 0;
        qint64 length = 0;
        while ((length = file.read(block.data(), writeBlock)) > 0) {
            total += length;
            if (total > node.size)
                return false;
            if (archive_write_data(m_zip.get(), block.data(), std::size_t(length)) != length)
                return failure();
        }
        if (length < 0)
            return cannot("read"_L1, place, file.errorString());
        std::error_code error;
        return total == node.size && std::filesystem::last_write_time(place, error) == node.written;
    }

    Result<void> finish()
    {
        if (archive_write_close(m_zip.get()) != ARCHIVE_OK)
            return failure();
        return {};
    }

private:
    static la_ssize_t write(archive* zip, void* client, const void* data, std::size_t size)
    {
        auto& self = *static_cast<ZipFile*>(client);
        if (const auto error = writeAll(self.m_file, static_cast<const char*>(data), size)) {
            archive_set_error(zip, error.value(), "%s", error.message().c_str());
            return -1;
        }
        return la_ssize_t(size);
    }

    /// No time is set: ZIP stores local time, and only a missing one is the same in every time zone.
    static Entry named(const std::string& name, unsigned kind, mode_t mode)
    {
        Entry entry(archive_entry_new());
        archive_entry_set_pathname_utf8(entry.get(), name.c_str());
        archive_entry_set_filetype(entry.get(), kind);
        archive_entry_set_perm(entry.get(), mode);
        return entry;
    }

    Result<void> addHeader(const Entry& entry)
    {
        if (archive_write_header(m_zip.get(), entry.get()) != ARCHIVE_OK)
            return failure();
        return {};
    }

    tl::unexpected<Failure> failure() const
    {
        return cannot("write"_L1, m_path, QString::fromUtf8(archive_error_string(m_zip.get())));
    }

    Path m_path;
    QFile m_file;
    std::unique_ptr<archive, CloseWriter> m_zip;
};

} // namespace

Result<void> writeArchive(
    const Tree& tree, const Path& folder, const Path& file, const Place& place, Findings& findings)
{
    ZipFile zip(file);
    const std::string top = folder.filename().string();
    auto done = zip.open().and_then([&] { return zip.addFolder(top); });
    for (const auto& [name, node] : tree.nodes) {
        if (!done)
            return done;
        const std::string inArchive = (Path(top) / name).string();
        if (node.kind == TreeNode::Kind::Folder) {
            done = zip.addFolder(inArchive);
        } else if (node.kind == TreeNode::Kind::Link) {
            done = zip.addLink(inArchive, node.target);
        } else {
            const auto asListed = zip.addFile(inArchive, node, folder / name);
            if (!asListed)
                return tl::unexpected(asListed.error());
            if (!*asListed)
                findings.push_back({Code::ChangedWhileRead, place,
                    u"%1 changed while it was packed"_s.arg(QString::fromStdString(name)), {}, {}});
        }
    }
    return done.and_then([&] { return zip.finish(); });
}
