#include "store/ArchiveJob.h"

#include "platform/Platform.h"
#include "platform/Sha256.h"

using namespace Qt::StringLiterals;

Failure damagedArchive()
{
    return {u"PloviStore"_s, 1, u"Сборка повреждена. Переустановите PloviStore."_s};
}

Result<void> saveArchive(const StoreApp& app, const Path& destination)
{
    Sha256 hasher;
    const auto verdict = [&]() -> Result<void> {
        const auto digest = hasher.finalize();
        if (!digest)
            return tl::unexpected(digest.error());
        return *digest == app.sha256 ? Result<void>() : tl::unexpected(damagedArchive());
    };
    return Platform::current().files.copy(
        app.packageURL(), destination, [&](Files::Bytes block) { return hasher.update(block); }, verdict);
}
