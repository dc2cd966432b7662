#include "pack/bundles/Bundle.h"

#include "pack/files/FileAccess.h"
#include "platform/BundleLayout.h"

#include <QXmlStreamWriter>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

QByteArray infoList(const Source& source, const QString& program)
{
    QByteArray list;
    QXmlStreamWriter writer(&list);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeDTD(u"<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                    u"\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">"_s);
    writer.writeStartElement(u"plist"_s);
    writer.writeAttribute(u"version"_s, u"1.0"_s);
    writer.writeStartElement(u"dict"_s);
    const auto add = [&](const QString& key, const QString& value) {
        writer.writeTextElement(u"key"_s, key);
        writer.writeTextElement(u"string"_s, value);
    };
    add(u"CFBundleExecutable"_s, program);
    if (!source.icon.isEmpty())
        add(u"CFBundleIconFile"_s, u"AppIcon"_s);
    add(u"CFBundleIdentifier"_s, source.identifier);
    add(u"CFBundleName"_s, source.name);
    add(u"CFBundlePackageType"_s, u"APPL"_s);
    add(u"CFBundleShortVersionString"_s, source.version);
    writer.writeEndDocument();
    return list;
}

Result<void> allowToRun(const Path& program)
{
    std::error_code error;
    fs::permissions(program, fs::perms(0755), error);
    if (error)
        return cannot("write"_L1, program, error);
    return {};
}

/// Gives all of it one time, whenever it is made.
Result<void> setTimes(const Path& bundle)
{
    const timespec times[]{{.tv_sec = 315'532'800, .tv_nsec = 0}, {.tv_sec = 315'532'800, .tv_nsec = 0}};
    std::error_code error;
    const auto set = [&](const Path& place) {
        return utimensat(AT_FDCWD, place.c_str(), times, AT_SYMLINK_NOFOLLOW) == 0;
    };
    bool isDone = true;
    for (fs::recursive_directory_iterator place(bundle, error), end; !error && place != end;
         place.increment(error))
        isDone = set(place->path()) && isDone;
    if (error || !isDone || !set(bundle))
        return cannot("write"_L1, bundle, u"its times cannot be set"_s);
    return {};
}

} // namespace

Result<void> writeBundle(const Source& source, const Path& bundle)
{
    const QString name = toText(bundle.stem());
    const Path program = below(bundle_layout::programs(bundle), name);
    const Path resources = bundle_layout::resources(bundle);
    std::error_code error;
    auto done = makeFolders(program.parent_path()).and_then([&] {
        return copyTree(fs::canonical(source.program, error), program);
    });
    if (!source.icon.isEmpty())
        done = done.and_then([&] { return writeFile(resources / "AppIcon.icns", source.icon); });
    return done.and_then([&] { return allowToRun(program); })
        .and_then([&] { return writeFile(bundle_layout::infoList(bundle), infoList(source, name)); })
        .and_then([&] { return setTimes(bundle); });
}
