#include "pack/files/FileAccess.h"
#include "pack/verbs/Verbs.h"

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

/// The line of a file. A backslash in front says that its name is written with escapes.
QByteArray lineOf(const Path& file, const QString& sha256)
{
    QByteArray name = QByteArray::fromStdString(file.string());
    const QByteArray plain = name;
    name.replace('\\', "\\\\").replace('\n', "\\n").replace('\r', "\\r");
    return (name == plain ? "" : "\\") + sha256.toLatin1() + "  " + name + '\n';
}

} // namespace

Result<int> sums(const Path& store)
{
    std::error_code error;
    std::vector<Path> files;
    for (fs::recursive_directory_iterator place(store, error), end; !error && place != end;
         place.increment(error)) {
        const auto type = place->symlink_status(error).type();
        if (error)
            break;
        if (type == fs::file_type::regular)
            files.push_back(place->path());
    }
    if (error)
        return cannot("read"_L1, store, error);
    std::ranges::sort(files);
    for (const Path& file : files) {
        const auto digest = digestOf(file);
        if (!digest)
            return tl::unexpected(digest.error());
        std::fputs(lineOf(file, digest->sha256).constData(), stdout);
    }
    return 0;
}
