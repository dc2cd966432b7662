#include "tools/SampleCollection.h"

#include "catalog/Catalog.h"
#include "pack/files/FileAccess.h"
#include "support/Samples.h"

#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr char drawing[] = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 8 8\">\n<path "
                           "fill=\"#ff0000\" d=\"M0 4H8V8H0Z\"/></svg>";

QByteArray infoList(const QByteArray& identifier)
{
    return "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" + identifier
        + "</string><key>CFBundleShortVersionString</key><string>2.4</string>"
          "<key>LSMinimumSystemVersion</key><string>13.0</string>"
          "<key>CFBundleExecutable</key><string>program</string></dict></plist>";
}

} // namespace

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
        writeBundle("c/apps" / toPath(name + ".app"_L1), app.bundleID.toUtf8());
        fs::create_symlink("Contents/MacOS/program", path("c/apps" / toPath(name + ".app/start"_L1)));
        writeFile(path("c/icons" / toPath(name + ".svg"_L1)), drawing);
    }
    writeBundle("program.app", "org.example.Store");
    writeFile(path("c/collection.json"), encodeCatalog(catalog, CatalogKind::Collection));
    writeFile(path("c/Brand.svg"), drawing);
    fs::copy_file(PROJECT_SOURCE "/collection/BriskoScreen.png", path("c/BriskoScreen.png"));
}

void SampleCollection::write(const Path& relative, const QByteArray& content) const
{
    writeFile(path(relative), content);
}

void SampleCollection::writeBundle(const Path& bundle, const QByteArray& identifier) const
{
    const Path program = bundle / "Contents/MacOS/program";
    writeFile(path(bundle / "Contents/Info.plist"), infoList(identifier));
    writeFile(path(program), "#!/bin/sh\necho " + identifier + '\n');
    fs::permissions(path(program), fs::perms(0700));
}

QByteArray SampleCollection::read(const Path& relative) const
{
    QFile file(path(relative));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

Ending SampleCollection::shell(const QString& script) const
{
    return run(u"sh"_s, {u"-c"_s, script});
}

Ending SampleCollection::tool(const QStringList& arguments) const
{
    return run(QStringLiteral(PACK_PROGRAM), arguments);
}

Ending SampleCollection::pack(const QString& store, const QStringList& options) const
{
    return tool(QStringList{u"pack"_s, u"c"_s, store, u"--program"_s, u"program.app"_s} + options);
}

QString SampleCollection::packing(const QString& collection, const QString& store)
{
    return u" %1 pack %2 %3 --program program.app "_s.arg(QStringLiteral(PACK_PROGRAM), collection, store);
}

Ending SampleCollection::run(const QString& program, const QStringList& arguments) const
{
    QProcess process;
    process.setWorkingDirectory(m_folder.path());
    process.start(program, arguments);
    process.waitForFinished(-1);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        process.readAllStandardOutput().toStdString(), process.readAllStandardError().toStdString()};
}
