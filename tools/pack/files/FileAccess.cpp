#include "pack/files/FileAccess.h"

#include "platform/Sha256.h"

#include <QFile>

#include <cerrno>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr qint64 blockSize = 262144;
constexpr auto everyonesFile =
    fs::perms::owner_write | fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
constexpr auto everyonesProgram =
    everyonesFile | fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;

/// Copies block by block: the standard library's copying does not tell the disk's own reason.
Result<void> copyFile(const Path& from, const Path& to)
{
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return cannot("read"_L1, from, source.errorString());
    QFile target(to);
    if (!target.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return cannot("write"_L1, to, target.errorString());
    std::error_code error;
    std::vector<char> block(blockSize);
    qint64 length = 0;
    while (!error && (length = source.read(block.data(), blockSize)) > 0)
        error = writeAll(target, block.data(), std::size_t(length));
    if (error)
        return cannot("write"_L1, to, error);
    if (length < 0)
        return cannot("read"_L1, from, source.errorString());
    return {};
}

} // namespace

tl::unexpected<Failure> cannot(QLatin1StringView what, const Path& place, const QString& reason)
{
    return tl::unexpected(Failure{packDomain, 1, u"cannot %1 %2: %3"_s.arg(what, toText(place), reason)});
}

tl::unexpected<Failure> cannot(QLatin1StringView what, const Path& place, const std::error_code& reason)
{
    return cannot(what, place, QString::fromStdString(reason.message()));
}

Result<QByteArray> readFile(const Path& file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        return cannot("read"_L1, file, source.errorString());
    auto content = source.readAll();
    if (source.error() != QFileDevice::NoError)
        return cannot("read"_L1, file, source.errorString());
    return content;
}

std::error_code writeAll(const QFile& file, const char* bytes, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = write(file.handle(), bytes, size);
        if (written < 0 && errno != EINTR)
            return {errno, std::generic_category()};
        if (written > 0) {
            bytes += written;
            size -= std::size_t(written);
        }
    }
    return {};
}

Result<void> writeFile(const Path& file, const QByteArray& content)
{
    if (auto made = makeFolders(file.parent_path()); !made)
        return made;
    QFile target(file);
    if (!target.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !target.setPermissions(readableByAll))
        return cannot("write"_L1, file, target.errorString());
    if (const auto error = writeAll(target, content.constData(), std::size_t(content.size())))
        return cannot("write"_L1, file, error);
    return {};
}

Result<void> copyTree(const Path& from, const Path& to)
{
    std::error_code error;
    const auto status = fs::symlink_status(from, error);
    if (error)
        return cannot("read"_L1, from, error);
    if (fs::is_symlink(status)) {
        fs::copy_symlink(from, to, error);
        if (error)
            return cannot("write"_L1, to, error);
        return {};
    }
    if (fs::is_regular_file(status)) {
        if (auto copied = copyFile(from, to); !copied)
            return copied;
        fs::permissions(to,
            (status.permissions() & fs::perms::owner_exec) != fs::perms::none ? everyonesProgram
                                                                              : everyonesFile,
            error);
        if (error)
            return cannot("write"_L1, to, error);
        return {};
    }
    if (!fs::is_directory(status))
        return cannot("copy"_L1, from, u"it is no file, folder or link"_s);
    auto done = makeFolders(to);
    for (fs::directory_iterator place(from, error), end; done && !error && place != end;
         place.increment(error))
        done = copyTree(place->path(), to / place->path().filename());
    if (error)
        return cannot("read"_L1, from, error);
    return done;
}

Result<void> makeFolders(const Path& folder)
{
    std::error_code error;
    if (folder.empty() || fs::is_directory(folder, error))
        return {};
    if (auto made = makeFolders(folder.parent_path()); !made)
        return made;
    fs::create_directory(folder, error);
    if (!error)
        fs::permissions(folder, everyonesProgram, error);
    if (error)
        return cannot("make"_L1, folder, error);
    return {};
}

Result<FileDigest> digestOf(const Path& file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return cannot("read"_L1, file, source.errorString());
    Sha256 hash;
    FileDigest result;
    std::vector<char> block(blockSize);
    qint64 length = 0;
    while ((length = source.read(block.data(), blockSize)) > 0) {
        if (auto hashed = hash.update(std::as_bytes(std::span(block).first(std::size_t(length)))); !hashed)
            return tl::unexpected(hashed.error());
        result.bytes += length;
    }
    if (length < 0)
        return cannot("read"_L1, file, source.errorString());
    return hash.finalize().map([&](const QString& sha256) { return FileDigest{result.bytes, sha256}; });
}
