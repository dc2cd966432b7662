#include "tools/SampleCollection.h"

#include "pack/Files.h"

#include <stdexcept>

namespace fs = std::filesystem;

namespace {

constexpr char collectionFile[] = R"([
    {"id": "alvi", "name": "Alvi", "category": "Утилиты", "subtitle": "S", "headline": "H", "description": "\"D\"\n\\",
     "tint": "red", "version": "1.0", "bundleID": "org.example.Alvi", "minimum": "13", "archive": "Alvi-1.0.zip",
     "architecture": "arm64", "features": ["один", "два"]},
    {"id": "bemmo", "name": "Bemmo", "category": "Медиа", "subtitle": "T", "headline": "I", "description": "E",
     "tint": "blue", "version": "2.0", "bundleID": "org.example.Bemmo", "minimum": "14", "archive": "Bemmo-2.0.zip",
     "architecture": "x86_64", "features": []}
])";

}

SampleCollection::SampleCollection()
{
    write("collection/collection.json", collectionFile);
    write("collection/Brand.svg", lowerHalfDrawing);
    write("collection/BriskoScreen.png", "picture");
    for (const Path name : {"Alvi", "Bemmo"}) {
        write("collection/icons" / name += ".svg", lowerHalfDrawing);
        const auto contents = ("apps" / name += ".app") / "Contents";
        write(contents / "Info.plist", "<plist/>");
        write(contents / "MacOS" / name, "program");
        fs::permissions(path(contents / "MacOS" / name), fs::perms(0700));
    }
}

PackOrder SampleCollection::order(const char* output) const
{
    return {.collection = path("collection"), .apps = path("apps"), .output = path(output)};
}

Path SampleCollection::path(const Path& relative) const
{
    return toPath(m_folder.path()) / relative;
}

void SampleCollection::write(const Path& relative, const QByteArray& content) const
{
    const auto file = path(relative);
    fs::create_directories(file.parent_path());
    if (!writeFile(file, content))
        throw std::runtime_error("cannot write " + file.string());
}

void SampleCollection::edit(const QByteArray& before, const QByteArray& after) const
{
    auto content = readFile(path("collection/collection.json")).value();
    if (!content.contains(before))
        throw std::runtime_error("collection.json does not hold what is to be replaced");
    write("collection/collection.json", content.replace(before, after));
}

std::map<std::string, QByteArray> filesBelow(const Path& folder)
{
    std::map<std::string, QByteArray> files;
    for (const auto& place : fs::recursive_directory_iterator(folder)) {
        if (place.is_regular_file())
            files.emplace(place.path().lexically_relative(folder).string(), readFile(place.path()).value());
    }
    return files;
}
