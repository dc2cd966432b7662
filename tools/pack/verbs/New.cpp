#include "catalog/Categories.h"
#include "pack/checks/Application.h"
#include "pack/checks/EntryRules.h"
#include "pack/files/FileAccess.h"
#include "pack/files/Staging.h"
#include "pack/pictures/Pictures.h"
#include "pack/trees/FolderReading.h"
#include "pack/verbs/Verbs.h"
#include "platform/BundleLayout.h"

#include <cstdio>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

/// A brand image to begin with.
constexpr char firstBrand[] = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 36 36">
  <rect x="2" y="2" width="32" height="32" rx="9" fill="#ff453a"/>
  <circle cx="18" cy="18" r="8" fill="none" stroke="#ffffff" stroke-width="4"/>
</svg>
)";
constexpr int firstScreenshotEdge = 680;

/// The entry as far as the application tells it; what only its maker knows is empty.
StoreApp entryFor(const Path& app, const Tree& tree, const ApplicationInfo& info)
{
    const QString name = toText(app.stem());
    const TreeNode* const program = executableOf(tree, info);
    const QStringList processors =
        program ? processorsOf(program->head).value_or(QStringList()) : QStringList();
    StoreApp entry;
    entry.id = name.toLower();
    entry.name = name;
    entry.category = categoryTitles.front().toString();
    entry.tint = u"blue"_s;
    entry.version = info.version;
    entry.bundleID = info.identifier;
    entry.minimum = info.minimum.isEmpty() ? u"13"_s : info.minimum;
    entry.archive = name + u'-' + info.version + ".zip"_L1;
    entry.architecture = processors.isEmpty() ? u"arm64 x86_64"_s : processors.join(u' ');
    return entry;
}

/// Copies the application with what is told of it.
Result<StoreApp> addApplication(const Path& collection, const Path& given)
{
    const Path app = given.has_filename() ? given : given.parent_path();
    if (app.extension() != bundle_layout::ending)
        return cannot("read"_L1, app, u"the name of an application ends with .app"_s);
    Findings findings;
    const Tree tree = readTree(app, {.file = toText(app)}, findings);
    const auto info = readInfo(tree);
    if (!info)
        return cannot("read"_L1, bundle_layout::infoList(app), u"it is missing or no property list"_s);
    const Path place = collection / "apps" / app.filename();
    std::error_code error;
    if (fs::exists(fs::symlink_status(place, error)))
        return cannot("add"_L1, app, u"another application has its name"_s);
    if (auto copied = copyTree(app, place); !copied)
        return tl::unexpected(copied.error());

    if (const auto icon = iconOf(tree, *info)) {
        const Path name = app.stem() += Path(*icon).extension();
        const auto copied = readFile(app / *icon).and_then([&](const QByteArray& content) {
            return writeFile(collection / "icons" / name, content);
        });
        if (!copied)
            return tl::unexpected(copied.error());
    }
    return entryFor(app, tree, *info);
}

} // namespace

Result<int> makeCollection(const Path& collection, const std::vector<Path>& apps)
{
    std::error_code error;
    if (fs::exists(fs::symlink_status(collection, error)))
        return cannot("make"_L1, collection, std::make_error_code(std::errc::file_exists));
    auto staging = Staging::beside(collection);
    if (!staging)
        return tl::unexpected(staging.error());

    const Path place = (*staging)->place();
    auto done = makeFolders(place / "apps").and_then([&] { return makeFolders(place / "icons"); });
    Catalog catalog;
    for (const Path& app : apps) {
        const auto entry = done.and_then([&] { return addApplication(place, app); });
        if (!entry)
            return tl::unexpected(entry.error());
        catalog.push_back(*entry);
    }
    const PictureFile brand{firstBrand, true, {}};
    done = writeFile(place / "collection.json", encodeCatalog(catalog, CatalogKind::Collection))
               .and_then([&] { return writeFile(place / "Brand.svg", brand.content); })
               .and_then([&] {
                   return writeFile(place / bundle_layout::screenshot({}).filename(),
                       squarePng(brand, firstScreenshotEdge));
               })
               .and_then([&] { return (*staging)->publish(); });
    if (!done)
        return tl::unexpected(done.error());
    std::printf("%s is made. What is left to write and to draw: plovistore-pack check %s\n",
        collection.c_str(), collection.c_str());
    return 0;
}
