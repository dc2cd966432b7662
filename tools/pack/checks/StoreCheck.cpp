#include "pack/checks/StoreCheck.h"

#include "pack/checks/Application.h"
#include "pack/checks/EntryRules.h"
#include "pack/checks/PictureSizes.h"
#include "pack/checks/TreeCheck.h"
#include "pack/files/FileAccess.h"
#include "pack/findings/Parallel.h"
#include "pack/pictures/Pictures.h"
#include "pack/trees/ArchiveReading.h"
#include "pack/trees/FolderReading.h"
#include "platform/BundleLayout.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

void checkArchive(const Path& bundle, const StoreApp& app, Findings& findings)
{
    const Path name = below(bundle_layout::packages({}), app.archive);
    const Place place{.file = toText(name), .entry = app.name};
    const auto tell = [&](Code code, const QString& message, const QString& expected = {},
                          const QString& found = {}) {
        findings.push_back({code, place, message, expected, found});
    };
    const auto digest = digestOf(bundle / name);
    if (!digest) {
        tell(Code::ArchiveMissing, digest.error().localizedDescription);
        return;
    }
    if (digest->bytes != app.bytes)
        tell(Code::SizeDiffers,
            u"the catalog says %1 bytes, and the archive has %2"_s.arg(app.bytes).arg(digest->bytes),
            QString::number(app.bytes), QString::number(digest->bytes));
    if (digest->sha256 != app.sha256)
        tell(Code::DigestDiffers,
            u"the catalog says SHA-256 %1, and the archive has %2"_s.arg(app.sha256, digest->sha256),
            app.sha256, digest->sha256);
    const auto before = findings.size();
    const Tree tree = readArchive(bundle / name, bundle_layout::bundle({}, app.name), place, findings);
    if (findings.size() == before)
        checkApplication(tree, app, place, findings);
}

void checkStorePicture(const Path& bundle, const Path& name, const QString& entry, int smallest,
    Square square, Findings& findings)
{
    if (const auto picture = readPicture(bundle / name, {.file = toText(name), .entry = entry}, findings))
        checkPicture(*picture, smallest, square, findings);
}

/// Complains of files beside the catalog that no entry names. Other folders belong to the program.
void checkUnreferenced(const Path& bundle, const Catalog& catalog, Findings& findings)
{
    std::set<Path> known{
        bundle_layout::catalog({}), bundle_layout::brandImage({}), bundle_layout::screenshot({})};
    for (const StoreApp& app : catalog) {
        known.insert(bundle_layout::icon({}, app.name));
        known.insert(below(bundle_layout::packages({}), app.archive));
    }
    for (const Path& folder : {bundle_layout::resources({}), bundle_layout::packages({})}) {
        const bool holdsFolders = folder == bundle_layout::resources({});
        std::error_code error;
        for (fs::directory_iterator place(bundle / folder, error), end; !error && place != end;
             place.increment(error)) {
            const Path name = folder / place->path().filename();
            if (!(holdsFolders && place->is_directory(error)) && !known.contains(name))
                findings.push_back({.code = Code::UnreferencedFile,
                    .place = {.file = toText(name)},
                    .message = u"nothing in the catalog refers to this file"_s});
        }
    }
}

} // namespace

Result<StoreBundle> readStore(const Path& bundle)
{
    const auto json = readFile(bundle_layout::catalog(bundle));
    if (!json)
        return tl::unexpected(json.error());

    StoreBundle store;
    Findings& findings = store.findings;
    const QString file = toText(bundle_layout::catalog({}));
    const auto texts = readEntries(*json, file, CatalogKind::Store, findings);
    if (auto catalog = decodeCatalog(std::as_bytes(std::span(*json))))
        store.catalog = *std::move(catalog);
    else if (!hasErrors(findings))
        findings.push_back({.code = Code::NotJson,
            .place = {.file = file},
            .message = catalog.error().localizedDescription});

    const Place program{.file = toText(bundle_layout::contents({}))};
    const Tree tree = readTree(bundle, program, findings);
    checkTree(tree, program, findings);
    checkProgram(tree, program, findings);

    const Findings found = findInParallel(store.catalog.size(), [&](std::size_t index, Findings& some) {
        const StoreApp& app = store.catalog[qsizetype(index)];
        if (canBeFileName(app.archive) && canBeFileName(app.name)) {
            checkArchive(bundle, app, some);
            checkStorePicture(bundle, bundle_layout::icon({}, app.name), app.name, picture_size::smallestIcon,
                Square::Wanted, some);
        }
    });
    findings.insert(findings.end(), found.begin(), found.end());

    checkStorePicture(
        bundle, bundle_layout::brandImage({}), {}, picture_size::brandEdge, Square::Indifferent, findings);
    if (std::ranges::any_of(store.catalog, showsScreenshot))
        checkStorePicture(bundle, bundle_layout::screenshot({}), {}, picture_size::smallestScreenshot,
            Square::Indifferent, findings);
    checkUnreferenced(bundle, store.catalog, findings);
    return store;
}
