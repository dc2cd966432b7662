#include "pack/checks/CollectionCheck.h"

#include "pack/checks/Application.h"
#include "pack/checks/BundleFiles.h"
#include "pack/checks/EntryRules.h"
#include "pack/files/FileAccess.h"
#include "pack/findings/Parallel.h"
#include "pack/trees/FolderReading.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr QLatin1StringView collectionFile("collection.json");

/// The edge that a maker's icon of pixels must have.
constexpr int smallestPixelIcon = 512;

struct IconSource {
    Path path;
    QString file;
    int smallest = 0;
};

/// Where the icon of an application may lie, the best first.
std::vector<IconSource> iconSources(const Path& folder, const CollectionEntry& entry)
{
    std::vector<IconSource> sources;
    for (const auto& [extension, smallest] :
        {std::pair(".svg"_L1, 0), {".png"_L1, smallestPixelIcon}, {".icns"_L1, bundle_file::smallestIcon}}) {
        const QString file = "icons/"_L1 + entry.app.name + extension;
        sources.push_back({folder / toPath(file), file, smallest});
    }
    const auto info = readInfo(entry.tree);
    if (info && !info->iconFile.isEmpty()) {
        const QString file = info->iconFile.contains(u'.') ? info->iconFile : info->iconFile + ".icns"_L1;
        const auto place = resolve(entry.tree, ("Contents/Resources/"_L1 + file).toStdString());
        if (place.end == Resolved::End::Found)
            sources.push_back({entry.folder / place.name,
                entry.place.file + u'/' + QString::fromStdString(place.name), bundle_file::smallestIcon});
    }
    return sources;
}

void readIcon(const Path& folder, CollectionEntry& entry, Findings& findings)
{
    std::error_code error;
    for (const IconSource& source : iconSources(folder, entry)) {
        if (!fs::exists(source.path, error))
            continue;
        entry.icon = readPicture(source.path, {source.file, 0, entry.app.name}, findings);
        if (entry.icon)
            checkPicture(*entry.icon, source.smallest, Square::Wanted, findings);
        return;
    }
    findings.push_back({Code::PictureMissing, {"icons/"_L1 + entry.app.name + ".svg"_L1, 0, entry.app.name},
        u"there is no icon: no .svg, .png or .icns here, and none in the application"_s, {}, {}});
}

void readApplication(CollectionEntry& entry, Findings& findings)
{
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(entry.folder, error))) {
        findings.push_back(
            {Code::AppLink, entry.place, u"the application must be a folder, not a link to one"_s, {}, {}});
    } else if (!fs::is_directory(entry.folder, error)) {
        findings.push_back({Code::AppMissing, entry.place, u"there is no such application"_s, {}, {}});
    } else {
        entry.tree = readTree(entry.folder, entry.place, findings);
        checkApplication(entry.tree, entry.app, entry.place, findings);
    }
}

} // namespace

Catalog Collection::catalog() const
{
    Catalog result;
    std::ranges::transform(entries, std::back_inserter(result), &CollectionEntry::app);
    return result;
}

Result<Collection> readCollection(const Path& folder, const Path& apps)
{
    const auto json = readFile(folder / collectionFile.data());
    if (!json)
        return tl::unexpected(json.error());

    Collection collection;
    Findings& findings = collection.findings;
    const auto texts = readEntries(*json, collectionFile, CatalogKind::Collection, findings);
    const Path shownApps = apps == folder / "apps" ? Path("apps") : apps;
    for (const EntryText& text : texts) {
        if (!canBeFileName(text.app.name))
            continue;
        const Path name = toPath(text.app.name + ".app"_L1);
        collection.entries.push_back(
            {.app = text.app, .folder = apps / name, .place = {toText(shownApps / name), 0, text.app.name}});
    }

    const Findings found = findInParallel(collection.entries.size(), [&](std::size_t index, Findings& some) {
        readApplication(collection.entries[index], some);
        readIcon(folder, collection.entries[index], some);
    });
    findings.insert(findings.end(), found.begin(), found.end());

    collection.brand = readPicture(folder / "Brand.svg", {u"Brand.svg"_s, 0, {}}, findings);
    if (collection.brand)
        checkPicture(*collection.brand, 0, Square::Indifferent, findings);
    const bool wantsScreenshot = std::ranges::any_of(
        texts, [](const EntryText& text) { return text.app.id == bundle_file::entryWithScreenshot; });
    std::error_code error;
    const Path screenshot = folder / bundle_file::screenshot;
    if (wantsScreenshot || fs::exists(screenshot, error)) {
        collection.screenshot = readPicture(screenshot, {u"BriskoScreen.png"_s, 0, {}}, findings);
        if (collection.screenshot)
            checkPicture(
                *collection.screenshot, bundle_file::smallestScreenshot, Square::Indifferent, findings);
    }
    return collection;
}
