#include "app/SelfTest.h"

#include "catalog/Catalog.h"
#include "platform/BundleLayout.h"
#include "platform/Image.h"
#include "platform/Sha256.h"
#include "platform/Text.h"

#include <cerrno>
#include <future>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t entriesExpected = 4;

/// From this size on an archive is read in a thread of its own: on two processors four archives of 256 MiB
/// take 0.30 s in place of 0.60. Threads for small ones would take a seventh of the self-test.
constexpr qint64 largeArchive = qint64{4} << 20;

/// Why the self-test ends before its last entry has passed.
struct Ending {
    int status;
    QString line;
};
template <class T>
using Checked = tl::expected<T, Ending>;

tl::unexpected<Ending> failed(const Failure& failure)
{
    return tl::unexpected(Ending{1, failure.localizedDescription});
}

tl::unexpected<Ending> stopped(const QString& message)
{
    return tl::unexpected(Ending{2, "Fatal error: "_L1 + message});
}

bool writeLine(std::FILE* stream, const QString& line)
{
    // A text of the catalog may hold a NUL.
    const QByteArray bytes = (line + u'\n').toUtf8();
    return std::fwrite(bytes.constData(), std::size_t(bytes.size()), 1, stream) == 1
        && std::fflush(stream) == 0;
}

/// A store's bundle on its machine.
struct Subject {
    const Path& store;
    const Files& files;
};

Checked<Catalog> checkedCatalog(const Subject& subject)
{
    auto catalog = readCatalog(subject.store, subject.files);
    if (!catalog)
        return failed(catalog.error());
    TextSet ids;
    for (const StoreApp& app : *catalog)
        ids.insert(app.id);
    if (catalog->size() != entriesExpected || ids.size() != entriesExpected)
        return stopped(u"Catalog invalid"_s);
    return std::move(*catalog);
}

/// The digest of the entry's archive. Any thread.
Checked<QString> checkedArchive(const Subject& subject, const StoreApp& app)
{
    Sha256 hasher;
    qint64 bytes = 0;
    const auto sink = [&](Files::Bytes block) {
        bytes += qint64(block.size());
        return hasher.update(block);
    };
    const Path archive = bundle_layout::archive(subject.store, app.archive);
    const auto digest = subject.files.readInBlocks(archive, sink).and_then([&] { return hasher.finalize(); });
    if (!digest)
        return failed(digest.error());
    if (bytes != app.bytes || *digest != app.sha256)
        return stopped(u"Invalid resource: "_s + app.name);
    return *digest;
}

bool hasIcon(const Subject& subject, const StoreApp& app)
{
    const Path file = bundle_layout::icon(subject.store, app.name);
    // The window shows whatever can be read of a set, so one picture is enough, and small ones come first.
    const auto hasPicture = [](Files::Bytes bytes) { return decodeImage(bytes, 0).has_value(); };
    bool isFound = false;
    const auto look = [&](Files::Bytes beginning) -> Result<void> {
        isFound = hasPicture(beginning);
        return tl::unexpected(systemFailure(ECANCELED));
    };
    if (!subject.files.readInBlocks(file, look) && isFound)
        return true;
    const auto content = subject.files.read(file);
    return content && hasPicture(std::as_bytes(std::span(*content)));
}

Checked<void> checkBundle(const Subject& subject, std::FILE* report)
{
    const auto catalog = checkedCatalog(subject);
    if (!catalog)
        return tl::unexpected(catalog.error());
    std::vector<std::future<Checked<QString>>> archives;
    for (const StoreApp& app : *catalog) {
        const auto start =
            app.bytes < largeArchive ? std::launch::deferred : std::launch::async | std::launch::deferred;
        archives.push_back(std::async(start, [&] { return checkedArchive(subject, app); }));
    }
    for (qsizetype index = 0; index < catalog->size(); ++index) {
        const StoreApp& app = catalog->at(index);
        const auto digest = archives[std::size_t(index)].get();
        if (!digest)
            return tl::unexpected(digest.error());
        if (!hasIcon(subject, app))
            return stopped(u"Invalid resource: "_s + app.name);
        if (!writeLine(report, u"PASS %1 %2 SHA256 %3"_s.arg(app.name, app.version, *digest)))
            return failed(systemFailure(errno));
    }
    return {};
}

} // namespace

int runSelfTest(const Path& store, const Files& files, SelfTestOutput output)
{
    const auto outcome = checkBundle({store, files}, output.report);
    if (outcome)
        return 0;
    const auto& [status, line] = outcome.error();
    const bool isStop = status == 2;
    if (!writeLine(isStop ? output.errors : output.report, line) && !isStop)
        writeLine(output.errors, line);
    return status;
}
