#include "pack/checks/CollectionCheck.h"

#include "pack/checks/Application.h"
#include "pack/checks/EntryRules.h"
#include "pack/checks/PictureSizes.h"
#include "pack/files/FileAccess.h"
#include "pack/findings/Parallel.h"
#include "pack/trees/FolderReading.h"
#include "platform/BundleLayout.h"

#include <algorithm>

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
    using namespace picture_size;
    std::vector<IconSource> sources;
    for (const auto& [extension, smallest] :
        {std::pair(".svg"_L1, 0), {".png"_L1, smallestPixelIcon}, {".icns"_L1, smallestIcon}}) {
        const QString file = "icons/"_L1 + entry.app.name + extension;
        sources.push_back({folder / toPath(file), file, smallest});
    }
    const auto info = readInfo(entry.tree);
    if (const auto own = info ? iconOf(entry.tree, *info) : std::nullopt)
        sources.push_back(
            {entry.folder / *own, entry.place.file + u'/' + QString::fromStdString(*own), smallestIcon});
    return sources;
}

void readIcon(const Path& folder, CollectionEntry& entry, Findings& findings)
{
    const auto sources = iconSources(folder, entry);
    const auto source = std::ranges::find_if(sources, [](const IconSource& one) {
        std::error_code error;
        return fs::exists(one.path, error);
    });
    if (source == sources.end()) {
        findings.push_back({.code = Code::PictureMissing,
            .place = {.file = sources.front().file, .entry = entry.app.name},
            .message = u"there is no icon: no .svg, .png or .icns here, and none in the application"_s});
        return;
    }
    entry.icon = readPicture(source->path, {.file = source->file, .entry = entry.app.name}, findings);
    if (entry.icon)
        checkPicture(*entry.icon, source->smallest, Square::Wanted, findings);
}

void readApplication(CollectionEntry& entry, Findings& findings)
{
    std::error_code error;
    if (fs::is_symlink(fs::symlink_status(entry.folder, error))) {
        findings.push_back({.code = Code::AppLink,
            .place = entry.place,
            .message = u"the application must be a folder, not a link to one"_s});
    } else if (!fs::is_directory(entry.folder, error)) {
        findings.push_back(
            {.code = Code::AppMissing, .place = entry.place, .message = u"there is no such application"_s});
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
        const QString shown = toText(bundle_layout::bundle(shownApps, text.app.name));
        collection.entries.push_back({.app = text.app,
            .folder = bundle_layout::bundle(apps, text.app.name),
            .place = {.file = shown, .entry = text.app.name}});
    }

    const Findings found = findInParallel(collection.entries.size(), [&](std::size_t index, Findings& some) {
        readApplication(collection.entries[index], some);
        readIcon(folder, collection.entries[index], some);
    });
    findings.insert(findings.end(), found.begin(), found.end());

    collection.brand = readPicture(folder / "Brand.svg", {.file = u"Brand.svg"_s}, findings);
    if (collection.brand)
        checkPicture(*collection.brand, 0, Square::Indifferent, findings);
    std::error_code error;
    const Path screenshot = bundle_layout::screenshot({}).filename();
    if (std::ranges::any_of(texts, showsScreenshot, &EntryText::app)
        || fs::exists(folder / screenshot, error)) {
        collection.screenshot = readPicture(folder / screenshot, {.file = toText(screenshot)}, findings);
        if (collection.screenshot)
            checkPicture(
                *collection.screenshot, picture_size::smallestScreenshot, Square::Indifferent, findings);
    }
    return collection;
}
