#include "pack/files/FileAccess.h"

#include "platform/Sha256.h"

#include <QFile>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

/// Qt's own way of writing does not tell the reason of a disk that takes only a part; being given the rest,
/// the disk does.
Result<void> append(QFile& file, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes.data(), bytes.size());
        if (written < 0)
            return cannot("write"_L1, toPath(file.fileName()), file.errorString());
        bytes = bytes.sliced(written);
    }
    return {};
}

Result<void> copyFile(const Path& from, const Path& to)
{
    QFile target(to);
    if (!target.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return cannot("write"_L1, to, target.errorString());
    return readBlocks(from, [&](QByteArrayView block) { return append(target, block); });
}

Result<void> unlessFailed(const std::error_code& error, QLatin1StringView what, const Path& place)
{
    return error ? cannot(what, place, error) : Result<void>();
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
    QByteArray content;
    const auto append = [&](QByteArrayView block) {
        content.append(block);
        return Result<void>();
    };
    return readBlocks(file, append).map([&] { return content; });
}

Result<void> readBlocks(const Path& file, const std::function<Result<void>(QByteArrayView)>& take)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return cannot("read"_L1, file, source.errorString());
    QByteArray block(262144, Qt::Uninitialized);
    Result<void> done;
    qint64 length = 0;
    while (done && (length = source.read(block.data(), block.size())) > 0)
        done = take(QByteArrayView(block).first(length));
    if (length < 0)
        return cannot("read"_L1, file, source.errorString());
    return done;
}

Result<void> writeFile(const Path& file, const QByteArray& content)
{
    QFile target(file);
    return makeFolders(file.parent_path()).and_then([&]() -> Result<void> {
        if (!target.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return cannot("write"_L1, file, target.errorString());
        return append(target, content);
    });
}

Result<void> copyTree(const Path& from, const Path& to)
{
    std::error_code error;
    const auto status = fs::symlink_status(from, error);
    if (fs::is_symlink(status)) {
        fs::copy_symlink(from, to, error);
        return unlessFailed(error, "write"_L1, to);
    }
    if (fs::is_regular_file(status)) {
        const auto executable = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
        auto done = copyFile(from, to);
        if (done && (status.permissions() & fs::perms::owner_exec) != fs::perms::none)
            fs::permissions(to, executable, fs::perm_options::add, error);
        return done.and_then([&] { return unlessFailed(error, "write"_L1, to); });
    }
    if (!fs::is_directory(status))
        return cannot("copy"_L1, from,
            error ? QString::fromStdString(error.message()) : u"it is no file, folder or link"_s);
    auto done = makeFolders(to);
    for (fs::directory_iterator place(from, error), end; done && !error && place != end;
         place.increment(error))
        done = copyTree(place->path(), to / place->path().filename());
    return done.and_then([&] { return unlessFailed(error, "read"_L1, from); });
}

Result<void> makeFolders(const Path& folder)
{
    std::error_code error;
    fs::create_directories(folder, error);
    return unlessFailed(error, "make"_L1, folder);
}

Result<FileDigest> digestOf(const Path& file)
{
    Sha256 hash;
    FileDigest digest;
    const auto update = [&](QByteArrayView block) {
        digest.bytes += block.size();
        return hash.update(std::as_bytes(std::span(block.data(), std::size_t(block.size()))));
    };
    return readBlocks(file, update).and_then([&] { return hash.finalize(); }).map([&](const QString& sha256) {
        return FileDigest{digest.bytes, sha256};
    });
}
