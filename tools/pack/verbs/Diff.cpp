#include "catalog/Fields.h"
#include "pack/files/FileAccess.h"
#include "pack/verbs/Verbs.h"
#include "platform/BundleLayout.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// A store's catalog with the digests of its icons; empty for one that cannot be read.
struct Side {
    Catalog catalog;
    QStringList icons;
};

Result<Side> readSide(const Path& store)
{
    const Path file = bundle_layout::catalog(store);
    const auto json = readFile(file);
    if (!json)
        return tl::unexpected(json.error());
    auto catalog = decodeCatalog(std::as_bytes(std::span(*json)));
    if (!catalog)
        return cannot("read"_L1, file, u"it is no catalog, and plovistore-pack check tells why"_s);
    Side side{std::move(*catalog), {}};
    for (const StoreApp& app : side.catalog)
        side.icons.append(digestOf(bundle_layout::icon(store, app.name)).value_or(FileDigest()).sha256);
    return side;
}

QString shown(const QString& text)
{
    return text;
}

QString shown(const QStringList& texts)
{
    return texts.join(u"; "_s);
}

QString shown(qint64 number)
{
    return QString::number(number);
}

struct Change {
    QString key;
    QString before;
    QString after;
};

std::vector<Change> changesOf(const StoreApp& before, const StoreApp& after)
{
    std::vector<Change> changes;
    forEachField([&](CodingKeys key, auto field) {
        if (before.*field != after.*field)
            changes.push_back(
                {QString::fromLatin1(keyText(key).data()), shown(before.*field), shown(after.*field)});
    });
    return changes;
}

struct ChangedEntry {
    StoreApp app;
    std::vector<Change> changes;
};

struct Difference {
    Catalog added;
    Catalog removed;
    std::vector<ChangedEntry> changed;
    bool orderDiffers = false;
};

Difference differenceOf(const Side& before, const Side& after)
{
    Difference difference;
    std::vector<qsizetype> places;
    for (qsizetype index = 0; index < qsizetype(after.catalog.size()); ++index) {
        const StoreApp& app = after.catalog[index];
        const auto old = std::ranges::find(before.catalog, app.id, &StoreApp::id);
        if (old == before.catalog.end()) {
            difference.added.push_back(app);
            continue;
        }
        const auto oldIndex = old - before.catalog.begin();
        places.push_back(oldIndex);
        auto changes = changesOf(*old, app);
        if (before.icons[oldIndex] != after.icons[index])
            changes.push_back({u"icon"_s, before.icons[oldIndex], after.icons[index]});
        if (!changes.empty())
            difference.changed.push_back({app, std::move(changes)});
    }
    std::ranges::copy_if(before.catalog, std::back_inserter(difference.removed), [&](const StoreApp& app) {
        return std::ranges::find(after.catalog, app.id, &StoreApp::id) == after.catalog.end();
    });
    difference.orderDiffers = !std::ranges::is_sorted(places);
    return difference;
}

void writeText(const Difference& difference)
{
    const auto line = [](const QString& text) { std::printf("%s\n", qUtf8Printable(text)); };
    for (const StoreApp& app : difference.added)
        line(u"added: %1 %2"_s.arg(app.name, app.version));
    for (const StoreApp& app : difference.removed)
        line(u"removed: %1 %2"_s.arg(app.name, app.version));
    for (const auto& [app, changes] : difference.changed) {
        for (const auto& [key, before, after] : changes)
            line(u"changed: %1: %2: \"%3\" -> \"%4\""_s.arg(app.name, key, before, after));
    }
    if (difference.orderDiffers)
        line(u"changed: the order of the entries"_s);
}

QJsonArray asArray(const Catalog& apps)
{
    QJsonArray list;
    for (const StoreApp& app : apps)
        list.append(QJsonObject{{u"id"_s, app.id}, {u"name"_s, app.name}, {u"version"_s, app.version}});
    return list;
}

void writeJson(const Difference& difference)
{
    QJsonArray changed;
    for (const auto& [app, changes] : difference.changed) {
        QJsonArray list;
        for (const auto& [key, before, after] : changes)
            list.append(QJsonObject{{u"key"_s, key}, {u"before"_s, before}, {u"after"_s, after}});
        changed.append(QJsonObject{{u"id"_s, app.id}, {u"name"_s, app.name}, {u"changes"_s, list}});
    }
    const QJsonObject object{{u"format"_s, 1}, {u"added"_s, asArray(difference.added)},
        {u"removed"_s, asArray(difference.removed)}, {u"changed"_s, changed},
        {u"orderDiffers"_s, difference.orderDiffers}};
    std::fputs(QJsonDocument(object).toJson().constData(), stdout);
}

} // namespace

Result<int> diff(const Path& before, const Path& after, Format format)
{
    const auto old = readSide(before);
    if (!old)
        return tl::unexpected(old.error());
    const auto now = readSide(after);
    if (!now)
        return tl::unexpected(now.error());
    const Difference difference = differenceOf(*old, *now);
    if (format == Format::Json)
        writeJson(difference);
    else
        writeText(difference);
    const bool same = difference.added.empty() && difference.removed.empty() && difference.changed.empty()
        && !difference.orderDiffers;
    return same ? 0 : 2;
}
