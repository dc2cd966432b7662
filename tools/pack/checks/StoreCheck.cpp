#include "pack/checks/StoreCheck.h"

#include "pack/checks/Application.h"
#include "pack/checks/BundleFiles.h"
#include "pack/checks/EntryRules.h"
#include "pack/checks/TreeCheck.h"
#include "pack/files/FileAccess.h"
#include "pack/findings/Parallel.h"
#include "pack/pictures/Pictures.h"
#include "pack/trees/ArchiveReading.h"
#include "pack/trees/FolderReading.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

QString inBundle(const Path& resource)
{
    return toText(bundle_file::resources / resource);
}

void checkArchive(const Path& resources, const StoreApp& app, Findings& findings)
{
    const Path name = Path(bundle_file::packages) / toPath(app.archive);
    const Place place{inBundle(name), 0, app.name};
    const auto digest = digestOf(resources / name);
    if (!digest) {
        findings.push_back({Code::ArchiveMissing, place, digest.error().localizedDescription, {}, {}});
        return;
    }
    if (digest->bytes != app.bytes)
        findings.push_back({Code::SizeDiffers, place,
            u"the catalog says %1 bytes, and the archive has %2"_s.arg(app.bytes).arg(digest->bytes),
            QString::number(app.bytes), QString::number(digest->bytes)});
    if (digest->sha256 != app.sha256)
        findings.push_back({Code::DigestDiffers, place,
            u"the catalog says SHA-256 %1, and the archive has %2"_s.arg(app.sha256, digest->sha256),
            app.sha256, digest->sha256});
    const auto before = findings.size();
    const Tree tree = readArchive(resources / name, (app.name + ".app"_L1).toStdString(), place, findings);
    if (findings.size() == before)
        checkApplication(tree, app, place, findings);
}

void checkStorePicture(const Path& resources, const Path& name, const QString& entry, int smallest,
    Square square, Findings& findings)
{
    if (const auto picture = readPicture(resources / name, {inBundle(name), 0, entry}, findings))
        checkPicture(*picture, smallest, square, findings);
}

/// Complains of files beside the catalog that no entry names. Other folders belong to the program.
void checkUnreferenced(const Path& resources, const Catalog& catalog, Findings& findings)
{
    std::set<Path> known{bundle_file::catalog, bundle_file::brand, bundle_file::screenshot};
    for (const StoreApp& app : catalog) {
        known.insert(bundle_file::icon(app));
        known.insert(Path(bundle_file::packages) / toPath(app.archive));
    }
    for (const Path& folder : {Path(), Path(bundle_file::packages)}) {
        std::error_code error;
        for (fs::directory_iterator place(resources / folder, error), end; !error && place != end;
             place.increment(error)) {
            const Path name = folder / place->path().filename();
            if ((!folder.empty() || !place->is_directory(error)) && !known.contains(name))
                findings.push_back({Code::UnreferencedFile, {inBundle(name), 0, {}},
                    u"nothing in the catalog refers to this file"_s, {}, {}});
        }
    }
}

} // namespace

Result<StoreBundle> readStore(const Path& bundle)
{
    const Path resources = bundle / bundle_file::resources;
    const auto json = readFile(resources / bundle_file::catalog);
    if (!json)
        return tl::unexpected(json.error());

    StoreBundle store;
    Findings& findings = store.findings;
    const QString file = inBundle(bundle_file::catalog);
    const auto texts = readEntries(*json, file, CatalogKind::Store, findings);
    if (auto catalog = decodeCatalog(std::as_bytes(std::span(*json))))
        store.catalog = *std::move(catalog);
    else if (!hasErrors(findings))
        findings.push_back({Code::NotJson, {file, 0, {}}, catalog.error().localizedDescription, {}, {}});

    const Place program{u"Contents"_s, 0, {}};
    const Tree tree = readTree(bundle, program, findings);
    checkTree(tree, program, findings);
    checkProgram(tree, program, findings);

    const Findings found = findInParallel(store.catalog.size(), [&](std::size_t index, Findings& some) {
        const StoreApp& app = store.catalog[index];
        if (canBeFileName(app.archive) && canBeFileName(app.name)) {
            checkArchive(resources, app, some);
            checkStorePicture(
                resources, bundle_file::icon(app), app.name, bundle_file::smallestIcon, Square::Wanted, some);
        }
    });
    findings.insert(findings.end(), found.begin(), found.end());

    checkStorePicture(
        resources, bundle_file::brand, {}, bundle_file::brandEdge, Square::Indifferent, findings);
    if (std::ranges::any_of(
            store.catalog, [](const StoreApp& app) { return app.id == bundle_file::entryWithScreenshot; }))
        checkStorePicture(resources, bundle_file::screenshot, {}, bundle_file::smallestScreenshot,
            Square::Indifferent, findings);
    checkUnreferenced(resources, store.catalog, findings);
    return store;
}
