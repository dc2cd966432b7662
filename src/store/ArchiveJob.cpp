#include "store/ArchiveJob.h"

#include "platform/Platform.h"
#include "platform/Sha256.h"

#include <cerrno>
#include <new>

using namespace Qt::StringLiterals;

namespace {

Result<void> checkAndWrite(const StoreApp& app, const Buffer& archive, const Path& destination)
{
    Sha256 hasher;
    hasher.update(archive.bytes());
    if (hasher.finalize() != app.sha256)
        return tl::unexpected(damagedArchive());
    return Platform::current().files->writeAtomically(destination, archive.bytes());
}

} // namespace

Failure damagedArchive()
{
    return {u"PloviStore"_s, 1, u"Сборка повреждена. Переустановите PloviStore."_s};
}

Result<void> saveArchive(const StoreApp& app, const Path& destination)
{
    try {
        return Platform::current().files->read(app.packageURL()).and_then([&](const Buffer& archive) {
            return checkAndWrite(app, archive, destination);
        });
    } catch (const std::bad_alloc&) {
        return tl::unexpected(systemFailure(ENOMEM));
    }
}
