#include "pack/checks/Application.h"
#include "pack/checks/CollectionCheck.h"
#include "pack/checks/PictureSizes.h"
#include "pack/checks/StoreCheck.h"
#include "pack/files/FileAccess.h"
#include "pack/files/Staging.h"
#include "pack/findings/Parallel.h"
#include "pack/trees/ArchiveWriting.h"
#include "pack/verbs/Verbs.h"
#include "platform/BundleLayout.h"

#include <algorithm>
#include <cstdio>
#include <mutex>
#include <unistd.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

/// Says on a terminal how far the work is.
class Progress {
public:
    explicit Progress(std::size_t count) : m_count(count), m_isShown(isatty(STDERR_FILENO) != 0) { }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress()
    {
        if (m_isShown)
            std::fputs("\r\033[K", stderr);
    }

    void packed(const QString& name)
    {
        const std::lock_guard lock(m_mutex);
        ++m_done;
        if (m_isShown)
            std::fprintf(stderr, "\r\033[K[%zu/%zu] %s", m_done, m_count, qUtf8Printable(name));
    }

private:
    std::mutex m_mutex;
    std::size_t m_done = 0;
    std::size_t m_count;
    bool m_isShown;
};

/// Whether a place of the bundle that the program is taken from belongs to that bundle's own catalog.
bool isOfCatalog(const Path& name)
{
    using namespace bundle_layout;
    return name == catalog({}) || name == packages({}) || name == brandImage({}) || name == screenshot({})
        || (name.parent_path() == resources({}) && name.extension() == ".icns");
}

/// Copies all of a bundle but its catalog.
Result<void> copyProgram(const Path& program, const Path& store)
{
    auto done = makeFolders(bundle_layout::packages(store));
    for (const Path& folder : {bundle_layout::contents({}), bundle_layout::resources({})}) {
        std::error_code error;
        if (!fs::exists(program / folder, error))
            break;
        for (fs::directory_iterator place(program / folder, error), end; done && !error && place != end;
             place.increment(error)) {
            const Path name = folder / place->path().filename();
            if (name != bundle_layout::resources({}) && !isOfCatalog(name))
                done = copyTree(place->path(), store / name);
        }
        if (error)
            return cannot("read"_L1, program / folder, error);
    }
    return done;
}

Result<void> packEntry(const Path& store, CollectionEntry& entry, Findings& findings)
{
    const Path archive = below(bundle_layout::packages(store), entry.app.archive);
    auto done = writeArchive(entry.tree, entry.folder, archive, entry.place, findings);
    const auto digest = done.and_then([&] { return digestOf(archive); });
    if (!digest)
        return tl::unexpected(digest.error());
    entry.app.bytes = digest->bytes;
    entry.app.sha256 = digest->sha256;
    return writeFile(bundle_layout::icon(store, entry.app.name), iconSet(*entry.icon));
}

Result<void> packEntries(const Path& store, Collection& collection)
{
    Progress progress(collection.entries.size());
    std::vector<Result<void>> results(collection.entries.size());
    const Findings found = findInParallel(results.size(), [&](std::size_t index, Findings& findings) {
        results[index] = packEntry(store, collection.entries[index], findings);
        progress.packed(collection.entries[index].app.name);
    });
    collection.findings.insert(collection.findings.end(), found.begin(), found.end());
    const auto failed = std::ranges::find_if(results, [](const auto& result) { return !result; });
    return failed == results.end() ? Result<void>() : *failed;
}

Result<void> writeStore(const PackOrder& order, Collection& collection, const Path& store)
{
    auto done = makeFolders(store)
                    .and_then([&] { return copyProgram(order.program, store); })
                    .and_then([&] { return packEntries(store, collection); })
                    .and_then([&] {
                        return writeFile(bundle_layout::brandImage(store),
                            squarePng(*collection.brand, picture_size::brandEdge));
                    });
    if (done && collection.screenshot)
        done = writeFile(bundle_layout::screenshot(store), collection.screenshot->content);
    return done.and_then(
        [&] { return writeFile(bundle_layout::catalog(store), encodeCatalog(collection.catalog())); });
}

/// Whether there are folders at most, as those that a build makes for what is to come.
bool isFree(const Path& store)
{
    std::error_code error;
    const auto isFolder = [](const fs::file_status& status) {
        return status.type() == fs::file_type::directory;
    };
    const auto status = fs::symlink_status(store, error);
    if (!fs::exists(status))
        return true;
    if (!isFolder(status))
        return false;
    fs::recursive_directory_iterator place(store, error);
    while (!error && place != fs::end(place) && isFolder(place->symlink_status(error)))
        place.increment(error);
    return !error && place == fs::end(place);
}

/// Only a store is ever replaced.
Result<void> checkTarget(const Path& store)
{
    if (store.extension() != bundle_layout::ending
        && (store.has_filename() || store.parent_path().extension() != bundle_layout::ending))
        return cannot("write"_L1, store, u"the name of a store ends with .app"_s);
    std::error_code error;
    if (!isFree(store) && !fs::is_regular_file(bundle_layout::catalog(store), error))
        return cannot("replace"_L1, store, u"it is no store"_s);
    return {};
}

Result<void> checkProgramBundle(const Path& program)
{
    std::error_code error;
    if (!fs::is_regular_file(bundle_layout::infoList(program), error))
        return cannot("take the program from"_L1, program, u"it is no store"_s);
    return {};
}

} // namespace

Result<int> pack(const PackOrder& order, const Reporting& reporting)
{
    auto staging =
        checkTarget(order.store).and_then([&] { return checkProgramBundle(order.program); }).and_then([&] {
            return Staging::beside(order.store);
        });
    if (!staging)
        return tl::unexpected(staging.error());
    auto collection = readCollection(order.collection, order.apps);
    if (!collection)
        return tl::unexpected(collection.error());
    const auto tell = [&] {
        return report(order.collection, collection->findings, collection->catalog(), reporting);
    };
    if (hasErrors(collection->findings) || (reporting.strict && !collection->findings.empty()))
        return tell();

    if (auto written = writeStore(order, *collection, (*staging)->place()); !written)
        return tl::unexpected(written.error());
    const auto store = readStore((*staging)->place());
    if (!store)
        return tl::unexpected(store.error());
    // Its warnings are those of the collection.
    std::ranges::copy_if(store->findings, std::back_inserter(collection->findings),
        [](const Finding& finding) { return severityOf(finding.code) == Severity::Error; });
    if (hasErrors(collection->findings))
        return tell();
    if (auto published = (*staging)->publish(); !published)
        return tl::unexpected(published.error());
    return tell();
}
