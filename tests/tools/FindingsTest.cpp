#include "tools/SampleCollection.h"

#include <gmock/gmock.h>

#include <archive.h>
#include <archive_entry.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;
using testing::HasSubstr;

namespace {

using Sample = SampleCollection;

/// One mistake and the line that tells it, from its file on.
struct Mistake {
    std::function<void(const Sample&)> make;
    const char* line;
};

const Path app = "c/apps/Bemmo.app";
const Path packages = "s.app/Contents/Resources/Packages";

std::function<void(const Sample&)> edit(const char* before, const char* after)
{
    return [=](const Sample& sample) { sample.edit("c/collection.json", before, after); };
}

std::function<void(const Sample&)> editList(const char* before, const char* after)
{
    return [=](const Sample& sample) { sample.edit(app / "Contents/Info.plist", before, after); };
}

std::function<void(const Sample&)> write(const Path& file, const QByteArray& content)
{
    return [=](const Sample& sample) { sample.write(file, content); };
}

std::function<void(const Sample&)> link(const char* name, const char* target)
{
    return [=](const Sample& sample) { fs::create_symlink(target, sample.path(app / name)); };
}

std::function<void(const Sample&)> without(const Path& place)
{
    return [=](const Sample& sample) { fs::remove_all(sample.path(place)); };
}

std::function<void(const Sample&)> mode(const char* file, unsigned bits)
{
    return [=](const Sample& sample) { fs::permissions(sample.path(app / file), fs::perms(bits)); };
}

/// An SVG icon with something inside.
std::function<void(const Sample&)> icon(const QByteArray& content)
{
    return write("c/icons/Bemmo.svg",
        "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 8 8\">\n" + content + "</svg>");
}

/// An archive of files with these names, each of so many zeros.
std::function<void(const Sample&)> archiveOf(const std::vector<const char*>& names, qint64 zeros)
{
    return [=](const Sample& sample) {
        const std::unique_ptr<archive, decltype(&archive_write_free)> zip(
            archive_write_new(), &archive_write_free);
        archive_write_set_format_zip(zip.get());
        archive_write_open_filename(zip.get(), sample.path(packages / "Bemmo.zip").c_str());
        const std::string content(std::size_t(zeros), '\0');
        for (const char* const name : names) {
            const std::unique_ptr<archive_entry, decltype(&archive_entry_free)> entry(
                archive_entry_new(), &archive_entry_free);
            archive_entry_set_pathname_utf8(entry.get(), name);
            archive_entry_set_filetype(entry.get(), AE_IFREG);
            archive_entry_set_size(entry.get(), zeros);
            archive_write_header(zip.get(), entry.get());
            archive_write_data(zip.get(), content.data(), content.size());
        }
    };
}

const char* const plainShape = "<path fill=\"#f00\" d=\"M0 4H8V8H0Z\"/>";

const Mistake collectionMistakes[]{
    {edit("\"id\": \"bemmo\"", "\"id\" \"bemmo\""),
        "collection.json:33: error: missing name separator [not-json]"},
    {edit("Утилиты", "\xff"), "collection.json:5: error: this line is not UTF-8 [not-utf8]"},
    {edit("        \"tint\": \"red\",\n", ""),
        "collection.json:2: error: the key \"tint\" is missing [key-missing]"},
    {edit("\"tint\"", "\"price\": 1, \"tint\""),
        "collection.json:9: error: the key \"price\" is not known [key-unknown]"},
    {edit("\"tint\"", "\"bytes\": 1, \"tint\""),
        "collection.json:9: error: the key \"bytes\" is not known [key-unknown]"},
    {edit("\"tint\": \"red\"", "\"tint\": 7"),
        "collection.json:9: error: the key \"tint\" must be a text [key-type]"},
    {edit("[\"Находит остатки\"", "[1"),
        "collection.json:15: error: the key \"features\" must be a list of texts [key-type]"},
    {edit("\n    },", "\n    }, 1,"), "collection.json:16: error: entry 2 must be an object [key-type]"},
    {edit("\"tint\"", "\"id\": \"x\", \"tint\""),
        "collection.json:9: error: the key \"id\" stands here twice [key-twice]"},
    {edit("Порядок", "\\u001b"),
        "collection.json:7: error: \"headline\" holds the control character U+001B [text-control]"},
    {edit("Порядок", "a\\nb"),
        "collection.json:7: error: \"headline\" holds the control character U+000A [text-control]"},
    {edit("\"red\"", "\" \""), "collection.json:9: warning: \"tint\" is empty [text-empty]"},
    {edit("\"Находит остатки\"", "\"\""), "collection.json:15: warning: \"features\" is empty [text-empty]"},
    {edit("Порядок", "\\u202e"),
        "collection.json:7: warning: \"headline\" changes the direction of writing with U+202E [text-bidi]"},
    {edit("\"alvi\"", "\"brisko\""),
        "collection.json:18: error: \"brisko\" is also the id in line 3 [id-shared]"},
    {edit("\"Alvi\"", "\"BRISKO\""),
        "collection.json:19: error: \"BRISKO\" is also the name in line 4 [name-shared]"},
    {edit("org.example.Alvi", "org.example.Brisko"),
        "collection.json:26: error: \"org.example.Brisko\" is also the bundleID in line 11 "
        "[bundle-id-shared]"},
    {edit("\"Alvi.zip\"", "\"brisko.zip\""),
        "collection.json:28: error: \"brisko.zip\" is also the archive in line 13 [archive-shared]"},
    {edit("\"Alvi\"", "\"../Alvi\""),
        "collection.json:19: error: \"../Alvi\" cannot be the name of a file [name-not-file]"},
    {edit("\"Alvi.zip\"", "\"a\\u0000.zip\""), "cannot be the name of a file [name-not-file]"},
    {edit("\"Alvi.zip\"", "\"/Alvi.zip\""),
        "collection.json:28: error: \"/Alvi.zip\" cannot be the name of a file [name-not-file]"},
    {edit("\"Alvi.zip\"", "\"Alvi.rar\""),
        "collection.json:28: error: \"Alvi.rar\" does not end with .zip [archive-not-zip]"},
    {edit("Утилиты", "Игры"),
        "collection.json:5: error: «Игры» is no section of the window (Утилиты, Медиа, Продуктивность) "
        "[category-unknown]"},
    {edit("\"13\"", "\"13+\""),
        "collection.json:12: error: \"13+\" is no version such as 13 or 10.15 [minimum-form]"},
    {edit("\"Brisko\"", "\"Alvi\""),
        "collection.json:4: warning: the first entry is featured, and its card always shows the icon of "
        "«Brisko» [first-not-brisko]"},
    {write("c/collection.json", "[]"),
        "collection.json: warning: the store's self-test wants four entries, and there are 0 "
        "[count-not-four]"},
    {without(app), "apps/Bemmo.app: error: there is no such application [app-missing]"},
    {[](const Sample& sample) {
         fs::rename(sample.path(app), sample.path("b"));
         fs::create_symlink(sample.path("b"), sample.path(app));
     },
        "apps/Bemmo.app: error: the application must be a folder, not a link to one [app-link]"},
    {editList("<dict>", "<"), "apps/Bemmo.app: error: Contents/Info.plist cannot be read [plist-unreadable]"},
    {editList("org.example.Bemmo", "org.example.Alvi"),
        "apps/Bemmo.app: error: the catalog says \"org.example.Bemmo\", and the application "
        "\"org.example.Alvi\" [bundle-id-differs]"},
    {editList("2.4", "2.5"),
        "apps/Bemmo.app: error: the catalog says version \"2.4\", and the application \"2.5\" "
        "[version-differs]"},
    {editList("13.0", "14"),
        "apps/Bemmo.app: warning: the catalog says macOS \"13\", and the application \"14\" "
        "[minimum-differs]"},
    {editList("<string>program", "<string>other"),
        "apps/Bemmo.app: error: there is no program Contents/MacOS/other [executable-missing]"},
    {mode("Contents/MacOS/program", 0644),
        "apps/Bemmo.app: error: Contents/MacOS/program is not allowed to run (chmod +x) [executable-mode]"},
    {write(app / "Contents/MacOS/program", "text"),
        "apps/Bemmo.app: error: Contents/MacOS/program is neither a program nor a script [not-a-program]"},
    {write(app / "Contents/MacOS/program",
         QByteArray("\x7f"
                    "ELF\2\1\0\0\0\0\0\0\0\0\0\0\2\0\x3e\0",
             20)),
        "0 errors, 0 warnings"},
    {write(app / "Contents/MacOS/program",
         QByteArray("\xca\xfe\xba\xbe\0\0\0\2\1\0\0\7\0\0\0\3\0\0\0\0\0\0\0\0\0\0\0\0\1\0\0\x0c", 32)),
        "0 errors, 0 warnings"},
    {[](const Sample& sample) {
         sample.write(app / "Contents/MacOS/program", QByteArray("\xcf\xfa\xed\xfe\x0c\0\0\1", 8));
         sample.edit("c/collection.json", "arm64 x86_64", "x86_64"),
             sample.edit("c/collection.json", "arm64 x86_64", "x86_64"),
             sample.edit("c/collection.json", "arm64 x86_64", "x86_64");
     },
        "apps/Bemmo.app: warning: the catalog says \"x86_64\", and the program is built for \"arm64\" "
        "[architecture-differs]"},
    {link("l", "/etc/passwd"),
        "apps/Bemmo.app: error: l leads out of the application, to /etc/passwd [link-outside]"},
    {link("Contents/l", "../Contents/../../x"),
        "error: Contents/l leads out of the application, to ../Contents/../../x [link-outside]"},
    {link("l", "Contents/nowhere"),
        "apps/Bemmo.app: warning: l leads to Contents/nowhere, where nothing is [link-dangling]"},
    {[](const Sample& sample) { mkfifo(sample.path(app / "pipe").c_str(), 0644); },
        "apps/Bemmo.app: error: pipe is no file, folder or link [special-file]"},
    {write(app / "\xff", ""), "is no UTF-8 name [name-not-utf8]"},
    {write(app / "a\nb", ""),
        "apps/Bemmo.app: error: a?b has a control character in its name [name-control]"},
    {write(app / "a\\b", ""), "apps/Bemmo.app: error: a\\b has a backslash in its name [name-backslash]"},
    {write(app / "contents", ""),
        "apps/Bemmo.app: error: contents differs from Contents only by letter case [names-differ-by-case]"},
    {mode("Contents/MacOS/program", 04755),
        "apps/Bemmo.app: warning: Contents/MacOS/program sets the user or the group that it runs as, which "
        "is left out [set-id]"},
    {write(app / "Contents/.DS_Store", ""),
        "apps/Bemmo.app: warning: Contents/.DS_Store is left by a desktop, and left out [litter]"},
    {without("c/icons/Bemmo.svg"),
        "icons/Bemmo.svg: error: there is no icon: no .svg, .png or .icns here, and none in the application "
        "[picture-missing]"},
    {without("c/Brand.svg"), "No such file or directory [picture-missing]"},
    {without("c/BriskoScreen.png"), "No such file or directory [picture-missing]"},
    {write("c/icons/Bemmo.svg", "<svg"),
        "icons/Bemmo.svg: error: this is no SVG drawing [picture-unreadable]"},
    {write("c/BriskoScreen.png", "picture"),
        "BriskoScreen.png: error: this is no picture that the store reads [picture-unreadable]"},
    {icon(QByteArray(plainShape) + "\n<text>B</text>"),
        "icons/Bemmo.svg:3: error: the drawing has a text, which looks as each machine's fonts want; make it "
        "a path [picture-text]"},
    {icon(QByteArray(plainShape) + "<image href=\"x.png\"/>"),
        "icons/Bemmo.svg:2: error: the drawing refers to \"x.png\", which lies outside of it "
        "[picture-external]"},
    {icon(QByteArray(plainShape) + "<style>path { fill: url('http://x/') }</style>"),
        "refers to \"http://x/\", which lies outside of it [picture-external]"},
    {icon(QByteArray(plainShape) + "<use href=\"#a\" fill=\"url(#b)\"/><a href=\"x\"/>"),
        "0 errors, 0 warnings"},
    {icon("<path d=\"M0 0\"/>"), "icons/Bemmo.svg: error: the picture shows nothing [picture-blank]"},
    {[](const Sample& sample) {
         fs::remove(sample.path("c/icons/Bemmo.svg"));
         fs::copy(sample.path("c/BriskoScreen.png"), sample.path("c/icons/Bemmo.png"));
     },
        "pixels, and must be square [picture-not-square]"},
    {[](const Sample& sample) {
         fs::remove(sample.path("c/icons/Bemmo.svg"));
         fs::copy(sample.path("s.app/Contents/Resources/Brand.png"), sample.path("c/icons/Bemmo.png"));
     },
        "icons/Bemmo.png: warning: the picture is 144 × 144 pixels, and looks blurred below 1024 "
        "[picture-small]"},
    {[](const Sample& sample) {
         fs::remove(sample.path("c/icons/Bemmo.svg"));
         sample.write(app / "Contents/Resources/b.icns", sample.read("s.app/Contents/Resources/Alvi.icns"));
         sample.edit(
             app / "Contents/Info.plist", "<dict>", "<dict><key>CFBundleIconFile</key><string>b</string>");
     },
        "0 errors, 0 warnings"},
};

const Mistake storeMistakes[]{
    {without(packages / "Bemmo.zip"), "Packages/Bemmo.zip: No such file or directory [archive-missing]"},
    {[](const Sample& sample) {
         sample.write(packages / "Bemmo.zip", sample.read(packages / "Bemmo.zip") + '\n');
     },
        "[size-differs]"},
    {[](const Sample& sample) {
         sample.write(
             packages / "Bemmo.zip", sample.read(packages / "Bemmo.zip").replace("program", "Program"));
     },
        "[digest-differs]"},
    {[](const Sample& sample) {
         const QByteArray zip = sample.read(packages / "Bemmo.zip");
         sample.write(packages / "Bemmo.zip", zip.first(zip.indexOf("PK\1\2")));
     },
        "Contents/Resources/Packages/Bemmo.zip: error: it does not unpack: "},
    {archiveOf({"Bemmo.app/../../x", "/etc/x", "Alvi.app/x"}, 1),
        "it must hold only the folder Bemmo.app, and holds Bemmo.app/../../x, /etc/x, Alvi.app/x "
        "[archive-shape]"},
    {archiveOf({"Bemmo.app/x", "Bemmo.app/x"}, 1),
        "it must hold only the folder Bemmo.app, and holds Bemmo.app/x [archive-shape]"},
    {archiveOf({"Bemmo.app/x"}, 40'000'000),
        "it unpacks to more than 1000 times its size, or than 64 GiB [archive-bomb]"},
    {archiveOf({"Bemmo.app/Contents/x"}, 1),
        "Bemmo.zip: error: Contents/Info.plist cannot be read [plist-unreadable]"},
    {write("s.app/Contents/Resources/Old.icns", ""),
        "Contents/Resources/Old.icns: warning: nothing in the catalog refers to this file "
        "[unreferenced-file]"},
    {write(packages / "Old.zip", ""),
        "Contents/Resources/Packages/Old.zip: warning: nothing in the catalog refers to this file "
        "[unreferenced-file]"},
    {without("s.app/Contents/MacOS/PloviStore"),
        "Contents: error: there is no program Contents/MacOS/PloviStore [executable-missing]"},
    {without("s.app/Contents/Resources/Bemmo.icns"), "No such file or directory [picture-missing]"},
    {[](const Sample& sample) {
         sample.edit("s.app/Contents/Resources/catalog.json", "\"bytes\": ", "\"bytes\": -");
     },
        "catalog.json:17: error: the key \"bytes\" must be a number of bytes [key-type]"},
};

/// Makes each mistake in a copy of one sample, and looks what is found in `subject` of it.
void expectFindings(std::span<const Mistake> mistakes, const Path& subject)
{
    const Sample sample;
    ASSERT_EQ(sample.pack("s.app").status, 0);
    for (const auto& [make, line] : mistakes) {
        SCOPED_TRACE(line);
        fs::copy(sample.path("c"), sample.path("c.good"),
            fs::copy_options::recursive | fs::copy_options::copy_symlinks);
        fs::copy(sample.path("s.app"), sample.path("s.good"), fs::copy_options::recursive);
        make(sample);

        const Ending ending = run(QStringLiteral(PACK_PROGRAM), {u"check"_s, sample.text(subject)});

        EXPECT_THAT(ending.output, HasSubstr(line)) << ending.errors;
        const std::string text(line);
        EXPECT_EQ(ending.status, ending.output.find(": error: ") != std::string::npos ? 2 : 0);
        for (const Path place : {"c", "s"}) {
            const Path changed = sample.path(place == "c" ? "c" : "s.app");
            fs::remove_all(changed);
            fs::rename(sample.path(place.string() + ".good"), changed);
        }
    }
}

TEST(Findings, NameEveryMistakeInACollection)
{
    expectFindings(collectionMistakes, "c");
}

TEST(Findings, NameEveryMistakeInAStore)
{
    expectFindings(storeMistakes, "s.app");
}

} // namespace
