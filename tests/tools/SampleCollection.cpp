#include "tools/SampleCollection.h"

#include "catalog/Catalog.h"
#include "support/Samples.h"

#include <QFile>
#include <QProcess>

#include <fstream>
#include <stdexcept>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr char drawing[] = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 8 8\">\n<path "
                           "fill=\"#ff0000\" d=\"M0 4H8V8H0Z\"/></svg>";

QByteArray infoList(const StoreApp& app)
{
    return "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" + app.bundleID.toUtf8()
        + "</string><key>CFBundleShortVersionString</key><string>" + app.version.toUtf8()
        + "</string><key>LSMinimumSystemVersion</key><string>13.0</string>"
          "<key>CFBundleExecutable</key><string>program</string></dict></plist>";
}

} // namespace

Ending run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(-1);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        process.readAllStandardOutput().toStdString(), process.readAllStandardError().toStdString()};
}

SampleCollection::SampleCollection()
{
    Catalog catalog;
    for (const QString& name : {u"Brisko"_s, u"Alvi"_s, u"Bemmo"_s, u"Čado"_s}) {
        StoreApp app = sample::brisko();
        app.id = name.toLower();
        app.name = name;
        app.bundleID = "org.example."_L1 + name;
        app.archive = name + ".zip"_L1;
        catalog.push_back(app);
        const Path contents = "c/apps" / toPath(name + ".app"_L1) / "Contents";
        write(contents / "Info.plist", infoList(app));
        write(contents / "MacOS/program", "#!/bin/sh\necho " + name.toUtf8() + '\n');
        fs::permissions(path(contents / "MacOS/program"), fs::perms(0700));
        fs::create_symlink("MacOS/program", path(contents / "Запуск"));
        write("c/icons" / toPath(name + ".svg"_L1), drawing);
    }
    write("c/collection.json", encodeCatalog(catalog, CatalogKind::Collection));
    write("c/Brand.svg", drawing);
    fs::copy_file(PROJECT_SOURCE "/collection/BriskoScreen.png", path("c/BriskoScreen.png"));
}

void SampleCollection::write(const Path& relative, const QByteArray& content) const
{
    fs::create_directories(path(relative).parent_path());
    // Not through Qt, which would spell a name that is not UTF-8 otherwise.
    if (!(std::ofstream(path(relative)) << content.toStdString()))
        throw std::runtime_error("cannot write " + relative.string());
}

QByteArray SampleCollection::read(const Path& relative) const
{
    QFile file(path(relative));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void SampleCollection::edit(const Path& relative, const QByteArray& before, const QByteArray& after) const
{
    QByteArray content = read(relative);
    const auto place = content.indexOf(before);
    if (place < 0)
        throw std::runtime_error(before.toStdString() + " does not occur in " + relative.string());
    write(relative, content.replace(place, before.size(), after));
}

Ending SampleCollection::pack(const Path& store, const QStringList& options) const
{
    return run(QStringLiteral(PACK_PROGRAM),
        QStringList{u"pack"_s, text("c"), text(store), u"--program"_s, QStringLiteral(STORE_PROGRAM)}
            + options);
}
