#include "pack/checks/CollectionCheck.h"
#include "pack/checks/StoreCheck.h"
#include "pack/files/FileAccess.h"
#include "pack/verbs/Verbs.h"

using namespace Qt::StringLiterals;

Result<int> check(const Path& subject, const std::optional<Path>& apps, const Reporting& reporting)
{
    std::error_code error;
    if (std::filesystem::is_directory(subject / "Contents", error)) {
        return readStore(subject).map([&](const StoreBundle& store) {
            return report(subject, store.findings, store.catalog, reporting);
        });
    }
    return readCollection(subject, apps.value_or(subject / "apps")).map([&](const Collection& collection) {
        return report(subject, collection.findings, collection.catalog(), reporting);
    });
}
