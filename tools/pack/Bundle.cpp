#include "pack/Bundle.h"

#include "pack/Catalog.h"
#include "pack/Files.h"
#include "pack/IconSet.h"

#include <system_error>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

/// The edge of the brand image: four pixels for each one that the sidebar gives it.
constexpr int brandEdge = 144;

/// All that is read before the first file is written.
struct Sources {
    std::vector<Entry> entries;
    std::vector<Drawing> icons;
    Drawing brand;
    QByteArray screen;
};

Path appFolder(const PackOrder& order, const Entry& entry)
{
    return order.apps / toPath(entry.name + ".app"_L1);
}

Outcome<Sources> readSources(const PackOrder& order)
{
    auto entries = readCollection(order.collection / "collection.json");
    if (!entries)
        return tl::unexpected(entries.error());

    std::vector<Drawing> icons;
    for (const auto& entry : *entries) {
        auto icon = Drawing::read(order.collection / "icons" / toPath(entry.name + ".svg"_L1));
        if (!icon)
            return tl::unexpected(icon.error());
        icons.push_back(*std::move(icon));

        std::error_code error;
        const auto folder = appFolder(order, entry);
        if (!fs::is_regular_file(folder / "Contents" / "Info.plist", error))
            return tl::unexpected(
                u"%1 is no application: it has no Contents/Info.plist"_s.arg(toText(folder)));
    }

    auto brand = Drawing::read(order.collection / "Brand.svg");
    if (!brand)
        return tl::unexpected(brand.error());
    auto screen = readFile(order.collection / "BriskoScreen.png");
    if (!screen)
        return tl::unexpected(screen.error());
    return Sources{*std::move(entries), std::move(icons), *std::move(brand), *std::move(screen)};
}

} // namespace

Outcome<void> packBundle(const PackOrder& order)
{
    const auto sources = readSources(order);
    if (!sources)
        return tl::unexpected(sources.error());

    std::error_code error;
    const auto packages = order.output / "Packages";
    fs::create_directories(packages, error);
    if (error)
        return tl::unexpected(cannot("make"_L1, packages, QString::fromStdString(error.message())));

    std::vector<PackedEntry> packed;
    for (const auto& entry : sources->entries) {
        const auto archive = packFolder(appFolder(order, entry), packages / toPath(entry.archive));
        if (!archive)
            return tl::unexpected(archive.error());
        packed.push_back({entry, *archive});
    }

    for (std::size_t i = 0; i < packed.size(); ++i) {
        const auto file = order.output / toPath(packed[i].entry.name + ".icns"_L1);
        if (auto written = writeFile(file, iconSet(sources->icons[i])); !written)
            return written;
    }
    return writeFile(order.output / "Brand.png", sources->brand.png(brandEdge))
        .and_then([&] { return writeFile(order.output / "BriskoScreen.png", sources->screen); })
        .and_then([&] { return writeFile(order.output / "catalog.json", catalogFile(packed)); });
}
