#include "pack/trees/ArchiveWriting.h"

#include "pack/files/FileAccess.h"

#include <archive.h>
#include <archive_entry.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// A ZIP archive on its way to a file.
class ZipFile {
public:
    explicit ZipFile(const Path& file)
        : m_path(file)
        , m_zip(archive_write_new(), &archive_write_free)
        , m_entry(archive_entry_new(), &archive_entry_free)
    {
    }

    Result<void> open()
    {
        auto* const zip = m_zip.get();
        const char* const options = "compression=deflate,compression-level=6,hdrcharset=UTF-8";
        if (archive_write_set_format_zip(zip) != ARCHIVE_OK
            || archive_write_set_options(zip, options) != ARCHIVE_OK)
            return failure();
        return unlessFailed(archive_write_open_filename(zip, m_path.c_str()));
    }

    /// No time is set: ZIP stores local time, and only a missing one is the same in every time zone.
    Result<void> add(const std::string& name, const TreeNode& node)
    {
        auto* const entry = archive_entry_clear(m_entry.get());
        const bool isProgram = node.kind == TreeNode::Kind::Folder || node.isExecutable;
        archive_entry_set_pathname_utf8(entry, name.c_str());
        if (node.kind == TreeNode::Kind::Link) {
            archive_entry_set_mode(entry, AE_IFLNK | 0777);
            archive_entry_set_symlink_utf8(entry, node.target.c_str());
        } else {
            const auto kind = node.kind == TreeNode::Kind::Folder ? AE_IFDIR : AE_IFREG;
            archive_entry_set_mode(entry, kind | (isProgram ? 0755 : 0644));
            archive_entry_set_size(entry, node.size);
        }
        return unlessFailed(archive_write_header(m_zip.get(), entry));
    }

    Result<void> append(QByteArrayView bytes)
    {
        const auto written = archive_write_data(m_zip.get(), bytes.data(), std::size_t(bytes.size()));
        return unlessFailed(written == bytes.size() ? ARCHIVE_OK : ARCHIVE_FATAL);
    }

    Result<void> finish() { return unlessFailed(archive_write_close(m_zip.get())); }

private:
    Result<void> unlessFailed(int status) const { return status == ARCHIVE_OK ? Result<void>() : failure(); }

    tl::unexpected<Failure> failure() const
    {
        // The library's own text for a full disk says only that a write failed.
        if (const int number = archive_errno(m_zip.get()); number > 0)
            return cannot("write"_L1, m_path, std::error_code(number, std::generic_category()));
        return cannot("write"_L1, m_path, QString::fromUtf8(archive_error_string(m_zip.get())));
    }

    Path m_path;
    std::unique_ptr<archive, decltype(&archive_write_free)> m_zip;
    std::unique_ptr<archive_entry, decltype(&archive_entry_free)> m_entry;
};

/// Adds the content of a file. Whether it was what `node` says.
Result<bool> addContent(ZipFile& zip, const TreeNode& node, const Path& file)
{
    qint64 size = 0;
    const auto add = [&](QByteArrayView block) {
        size += block.size();
        return size > node.size ? Result<void>() : zip.append(block);
    };
    return readBlocks(file, add).map([&] {
        std::error_code error;
        return size == node.size && std::filesystem::last_write_time(file, error) == node.written;
    });
}

} // namespace

Result<void> writeArchive(
    const Tree& tree, const Path& folder, const Path& file, const Place& place, Findings& findings)
{
    ZipFile zip(file);
    const Path top = folder.filename();
    auto done = zip.open().and_then([&] { return zip.add(top, {.kind = TreeNode::Kind::Folder}); });
    for (const auto& [name, node] : tree.nodes) {
        if (!done)
            return done;
        done = zip.add(top / name, node);
        if (!done || node.kind != TreeNode::Kind::File)
            continue;
        const auto asListed = addContent(zip, node, folder / name);
        if (!asListed)
            return tl::unexpected(asListed.error());
        if (!*asListed)
            findings.push_back({.code = Code::ChangedWhileRead,
                .place = place,
                .message = u"%1 changed while it was packed"_s.arg(QString::fromStdString(name))});
    }
    return done.and_then([&] { return zip.finish(); });
}
