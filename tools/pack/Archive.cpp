#include "pack/Archive.h"

#include "pack/Files.h"
#include "platform/Sha256.h"

#include <QFile>
#include <QSaveFile>

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <system_error>
#include <vector>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t blockSize = 262144;

QString text(const std::error_code& error)
{
    return QString::fromStdString(error.message());
}

struct ArchiveDeleter {
    void operator()(archive* zip) const { archive_write_free(zip); }
};

struct EntryDeleter {
    void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};

/// A ZIP archive on its way to a file, counted and hashed as it is written.
class ZipFile {
public:
    explicit ZipFile(const Path& file) : m_path(file), m_file(toText(file)), m_zip(archive_write_new()) { }

    Outcome<void> open()
    {
        auto* const zip = m_zip.get();
        if (!m_file.open(QIODevice::WriteOnly))
            return tl::unexpected(cannot("write"_L1, m_path, m_file.errorString()));
        if (archive_write_set_format_zip(zip) != ARCHIVE_OK
            || archive_write_set_options(zip, "compression=deflate,compression-level=9,hdrcharset=UTF-8")
                != ARCHIVE_OK
            || archive_write_set_bytes_in_last_block(zip, 1) != ARCHIVE_OK
            || archive_write_open2(zip, this, nullptr, &ZipFile::write, nullptr, nullptr) != ARCHIVE_OK)
            return failure();
        return {};
    }

    /// Appends what lies at `place` under the name `name`.
    Outcome<void> add(const Path& place, const Path& name)
    {
        std::error_code error;
        const auto status = fs::symlink_status(place, error);
        if (error)
            return tl::unexpected(cannot("read"_L1, place, text(error)));

        // No time is set: ZIP stores local time, and only a missing one is the same in every time zone.
        const std::unique_ptr<archive_entry, EntryDeleter> entry(archive_entry_new());
        archive_entry_set_pathname_utf8(entry.get(), name.c_str());
        switch (status.type()) {
        case fs::file_type::directory:
            archive_entry_set_filetype(entry.get(), AE_IFDIR);
            archive_entry_set_perm(entry.get(), 0755);
            return addHeader(entry.get());
        case fs::file_type::symlink:
            archive_entry_set_filetype(entry.get(), AE_IFLNK);
            archive_entry_set_perm(entry.get(), 0777);
            archive_entry_set_symlink_utf8(entry.get(), fs::read_symlink(place, error).c_str());
            return error ? tl::unexpected(cannot("read"_L1, place, text(error))) : addHeader(entry.get());
        case fs::file_type::regular: {
            const bool executable = (status.permissions() & fs::perms::owner_exec) != fs::perms::none;
            archive_entry_set_filetype(entry.get(), AE_IFREG);
            archive_entry_set_perm(entry.get(), executable ? 0755 : 0644);
            return addFile(entry.get(), place);
        }
        default:
            return tl::unexpected(cannot("pack"_L1, place, u"it is no file, folder or symbolic link"_s));
        }
    }

    Outcome<PackedArchive> finish()
    {
        if (archive_write_close(m_zip.get()) != ARCHIVE_OK)
            return failure();
        if (!m_file.commit())
            return tl::unexpected(cannot("write"_L1, m_path, m_file.errorString()));
        const auto digest = m_hash.finalize();
        if (!digest)
            return tl::unexpected(digest.error().localizedDescription);
        return PackedArchive{.bytes = m_bytes, .sha256 = *digest};
    }

private:
    static la_ssize_t write(archive* zip, void* client, const void* data, std::size_t size)
    {
        auto& self = *static_cast<ZipFile*>(client);
        const auto length = static_cast<qint64>(size);
        if (self.m_file.write(static_cast<const char*>(data), length) != length) {
            archive_set_error(zip, EIO, "%s", qUtf8Printable(self.m_file.errorString()));
            return -1;
        }
        self.m_bytes += length;
        return self.m_hash.update({static_cast<const std::byte*>(data), size}) ? length : -1;
    }

    Outcome<void> addHeader(archive_entry* entry)
    {
        if (archive_write_header(m_zip.get(), entry) != ARCHIVE_OK)
            return failure();
        return {};
    }

    Outcome<void> addFile(archive_entry* entry, const Path& place)
    {
        QFile file(place);
        if (!file.open(QIODevice::ReadOnly))
            return tl::unexpected(cannot("read"_L1, place, file.errorString()));
        archive_entry_set_size(entry, file.size());
        if (auto added = addHeader(entry); !added)
            return added;

        std::vector<char> block(blockSize);
        qint64 length = 0;
        while ((length = file.read(block.data(), blockSize)) > 0) {
            if (archive_write_data(m_zip.get(), block.data(), static_cast<std::size_t>(length)) != length)
                return failure();
        }
        if (length < 0)
            return tl::unexpected(cannot("read"_L1, place, file.errorString()));
        return {};
    }

    tl::unexpected<QString> failure() const
    {
        return tl::unexpected(
            cannot("write"_L1, m_path, QString::fromUtf8(archive_error_string(m_zip.get()))));
    }

    Path m_path;
    QSaveFile m_file;
    Sha256 m_hash;
    qint64 m_bytes = 0;
    std::unique_ptr<archive, ArchiveDeleter> m_zip;
};

/// Everything below `folder`, relative to it and sorted, so that a folder comes before what lies in it.
Outcome<std::vector<Path>> contentOf(const Path& folder)
{
    std::vector<Path> places;
    std::error_code error;
    for (fs::recursive_directory_iterator place(folder, error), end; !error && place != end;
         place.increment(error))
        places.push_back(place->path().lexically_relative(folder));
    if (error)
        return tl::unexpected(cannot("read"_L1, folder, text(error)));

    std::ranges::sort(places);
    return places;
}

} // namespace

Outcome<PackedArchive> packFolder(const Path& folder, const Path& file)
{
    const auto content = contentOf(folder);
    if (!content)
        return tl::unexpected(content.error());

    ZipFile zip(file);
    auto done = zip.open();
    if (done)
        done = zip.add(folder, folder.filename());
    for (auto place = content->begin(); done && place != content->end(); ++place)
        done = zip.add(folder / *place, folder.filename() / *place);
    if (!done)
        return tl::unexpected(done.error());
    return zip.finish();
}
