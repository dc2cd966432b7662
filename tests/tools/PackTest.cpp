#include "pack/ArchiveWriting.h"
#include "tools/SampleCollection.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

using Sample = SampleCollection;

Ending tool(const QStringList& arguments)
{
    return run(QStringLiteral(PACK_PROGRAM), arguments);
}

Ending shell(const Sample& sample, const QString& script)
{
    return run(u"sh"_s, {u"-c"_s, "cd '"_L1 + sample.text("") + "' && "_L1 + script});
}

/// A shell's words for packing the sample's collection.
QString packing(const QString& collection, const QString& store)
{
    return u"%1 pack %2 %3 --program %4"_s.arg(
        QStringLiteral(PACK_PROGRAM), collection, store, QStringLiteral(STORE_PROGRAM));
}

std::vector<std::string> hiddenBeside(const Sample& sample)
{
    std::vector<std::string> names;
    for (const auto& place : fs::directory_iterator(sample.path(""))) {
        if (place.path().filename().string().starts_with('.'))
            names.push_back(place.path().filename());
    }
    return names;
}

TEST(Pack, AStoreThatPassesItsOwnSelfTest)
{
    const Sample sample;

    const Ending packed = sample.pack("s.app", {u"--json"_s});

    EXPECT_EQ(packed.status, 0) << packed.errors;
    const QJsonObject report = QJsonDocument::fromJson(QByteArray::fromStdString(packed.output)).object();
    EXPECT_EQ(report["format"_L1].toInt(), 1);
    EXPECT_EQ(report["subject"_L1].toString(), sample.text("c"));
    EXPECT_TRUE(report["findings"_L1].toArray().isEmpty());
    ASSERT_EQ(report["entries"_L1].toArray().size(), 4);
    const QJsonObject entry = report["entries"_L1].toArray().first().toObject();
    EXPECT_EQ(entry["archive"_L1].toString(), u"Brisko.zip"_s);
    EXPECT_EQ(entry["bytes"_L1].toInteger(),
        qint64(fs::file_size(sample.path("s.app/Contents/Resources/Packages/Brisko.zip"))));

    const Ending tested = run(sample.text("s.app/Contents/MacOS/PloviStore"), {u"--self-test"_s});
    EXPECT_EQ(tested.status, 0) << tested.errors;
    EXPECT_THAT(
        tested.output, StartsWith("PASS Brisko 2.4 SHA256 " + entry["sha256"_L1].toString().toStdString()));
    EXPECT_EQ(tool({u"check"_s, sample.text("s.app"), u"--strict"_s}).output, "0 errors, 0 warnings\n");
    EXPECT_EQ(
        shell(sample, QStringLiteral(PACK_PROGRAM) + u" sums s.app | sha256sum -c --quiet"_s).status, 0);
    EXPECT_EQ(
        shell(sample,
            u"unzip -q s.app/Contents/Resources/Packages/Alvi.zip && diff -r --no-dereference Alvi.app c/apps/Alvi.app && Alvi.app/Contents/Запуск"_s)
            .output,
        "Alvi\n");
}

TEST(Pack, GivesTheSameBytesWhoeverRunsItAndWhen)
{
    const Sample sample;
    ASSERT_EQ(shell(sample, "umask 000; "_L1 + packing(u"c"_s, u"s.app"_s)).status, 0);

    const Ending other = shell(sample,
        u"mkdir d && tar -C c -cf - --sort=name . | tar -C d -xmf - && umask 077 && cd d && LC_ALL=ru_RU.KOI8-R TZ=Asia/Tokyo taskset -c 0 "_s
            + packing(u"."_s, u"../t.app"_s));

    EXPECT_EQ(other.status, 0) << other.errors;
    EXPECT_EQ(
        shell(sample,
            u"diff -r s.app t.app && for s in s t; do (cd $s.app && find . -printf '%m %p\\n' | sort) >$s; done && diff s t && sed 's/ .*//' s | sort -u"_s)
            .output,
        "644\n755\n");
}

TEST(Pack, LeavesTheOldStoreUntilTheNewOneIsProved)
{
    const Sample sample;
    ASSERT_EQ(sample.pack("s.app").status, 0);
    const QByteArray before = sample.read("s.app/Contents/Resources/catalog.json");
    const auto unchanged = [&] {
        return sample.read("s.app/Contents/Resources/catalog.json") == before && hiddenBeside(sample).empty();
    };

    sample.edit("c/collection.json", "\"red\"", "7");
    const Ending wrong = sample.pack("s.app");
    EXPECT_EQ(wrong.status, 2);
    EXPECT_THAT(wrong.output,
        HasSubstr(
            "collection.json:9: error: the key \"tint\" must be a text [key-type]\n1 error, 0 warnings\n"));
    EXPECT_TRUE(unchanged());

    sample.edit("c/collection.json", "7", "\"\"");
    EXPECT_EQ(sample.pack("s.app", {u"--strict"_s}).status, 2);
    EXPECT_TRUE(unchanged());

    const Ending full = shell(sample, "ulimit -f 8; trap '' XFSZ; "_L1 + packing(u"c"_s, u"s.app"_s));
    EXPECT_EQ(full.status, 1);
    EXPECT_THAT(full.errors, HasSubstr("File too large"));
    EXPECT_TRUE(unchanged());

    fs::create_directory(sample.path(".s.app.new"));
    const int lock = open(sample.path(".s.app.new").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    const Ending second = sample.pack("s.app");
    EXPECT_EQ(second.status, 1);
    EXPECT_EQ(
        second.errors, "plovistore-pack: another run is writing " + sample.path("s.app").string() + "\n");
    close(lock);

    sample.write(".s.app.new/left over", "");
    EXPECT_EQ(sample.pack("s.app").status, 0);
    EXPECT_TRUE(hiddenBeside(sample).empty());
    EXPECT_NE(sample.read("s.app/Contents/Resources/catalog.json"), before);

    fs::create_directories(sample.path("my.app/photos"));
    EXPECT_THAT(sample.pack("my.app").errors, HasSubstr("it is no store"));
    EXPECT_TRUE(fs::exists(sample.path("my.app/photos")));
}

TEST(Pack, AKillAtAnyMomentLeavesAWholeStore)
{
    const Sample sample;
    ASSERT_EQ(sample.pack("s.app").status, 0);
    for (const char* const milliseconds : {"0.02", "0.05", "0.1", "0.2", "0.4"}) {
        shell(sample,
            "timeout -s KILL %1 "_L1.arg(QLatin1StringView(milliseconds)) + packing(u"c"_s, u"s.app"_s));
        EXPECT_EQ(tool({u"check"_s, sample.text("s.app")}).status, 0) << milliseconds;
    }
}

TEST(Pack, SeesAFileThatChangesWhileItIsPacked)
{
    const Sample sample;
    const Path app = sample.path("c/apps/Alvi.app");
    Findings findings;
    const Tree tree = readTree(app, {}, findings);
    sample.write("c/apps/Alvi.app/Contents/MacOS/program", "another one that is longer");

    EXPECT_TRUE(writeArchive(tree, app, sample.path("a.zip"), {}, findings));

    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(codeText(findings.front().code), "changed-while-read");
}

TEST(Pack, TellsWhatCannotBeRead)
{
    const Sample sample;
    const QString other = geteuid() == 0 ? u"setpriv --reuid=65534 --clear-groups "_s : QString();
    fs::permissions(sample.path(""), fs::perms(0755));
    fs::permissions(sample.path("c/apps/Alvi.app/Contents/MacOS"), fs::perms(0));

    const Ending ending = shell(sample, other + QStringLiteral(PACK_PROGRAM) + u" check c"_s);
    fs::permissions(sample.path("c/apps/Alvi.app/Contents/MacOS"), fs::perms(0755));

    EXPECT_THAT(ending.output,
        HasSubstr("apps/Alvi.app: error: Contents/MacOS cannot be read: Permission denied [unreadable]"));
}

TEST(Diff, TellsWhatChangedFromOneStoreToTheOther)
{
    const Sample sample;
    ASSERT_EQ(sample.pack("old.app").status, 0);
    EXPECT_EQ(tool({u"diff"_s, sample.text("old.app"), sample.text("old.app")}).status, 0);
    sample.edit("c/collection.json", "\"alvi\"", "\"new\"");
    sample.edit("c/collection.json", "\"red\"", "\"blue\"");
    sample.edit("c/icons/Brisko.svg", "ff0000", "00ff00");
    ASSERT_EQ(sample.pack("new.app").status, 0);

    const Ending text = tool({u"diff"_s, sample.text("old.app"), sample.text("new.app")});

    EXPECT_EQ(text.status, 2);
    EXPECT_THAT(text.output,
        StartsWith("added: Alvi 2.4\nremoved: Alvi 2.4\nchanged: Brisko: tint: \"red\" -> \"blue\"\nchanged: "
                   "Brisko: icon: \""));
    const Ending json = tool({u"diff"_s, u"--json"_s, sample.text("old.app"), sample.text("new.app")});
    const QJsonObject object = QJsonDocument::fromJson(QByteArray::fromStdString(json.output)).object();
    EXPECT_EQ(object["added"_L1][0]["id"_L1].toString(), u"new"_s);
    EXPECT_EQ(object["changed"_L1][0]["changes"_L1][0]["after"_L1].toString(), u"blue"_s);
}

TEST(New, MakesACollectionThatCanBePackedAtOnce)
{
    const Sample sample;
    sample.write("c/apps/Alvi.app/Contents/Resources/a.icns", "icns");
    sample.edit("c/apps/Alvi.app/Contents/Info.plist", "<dict>",
        "<dict><key>CFBundleIconFile</key><string>a</string>");

    EXPECT_EQ(
        tool({u"new"_s, sample.text("n"), sample.text("c/apps/Alvi.app"), sample.text("c/apps/Brisko.app/")})
            .status,
        0);

    const QJsonArray entries = QJsonDocument::fromJson(sample.read("n/collection.json")).array();
    ASSERT_EQ(entries.size(), 2);
    const QJsonObject first = entries[0].toObject();
    EXPECT_EQ(first.size(), 13);
    for (const auto& [key, value] : {std::pair(u"id"_s, u"alvi"_s), {u"name"_s, u"Alvi"_s},
             {u"version"_s, u"2.4"_s}, {u"bundleID"_s, u"org.example.Alvi"_s}, {u"minimum"_s, u"13.0"_s},
             {u"archive"_s, u"Alvi-2.4.zip"_s}})
        EXPECT_EQ(first[key].toString(), value);
    EXPECT_EQ(sample.read("n/icons/Alvi.icns"), "icns");
    EXPECT_EQ(tool({u"new"_s, sample.text("n"), sample.text("c/apps/Alvi.app")}).status, 1);

    fs::copy(sample.path("c/icons/Brisko.svg"), sample.path("n/icons/Brisko.svg"));
    fs::copy(sample.path("c/icons/Brisko.svg"), sample.path("n/icons/Alvi.svg"));
    EXPECT_EQ(shell(sample, packing(u"n"_s, u"n.app"_s)).status, 0);
}

TEST(Tool, RefusesWrongArgumentsAndHelps)
{
    for (const QStringList& wrong :
        {QStringList(), {u"paint"_s}, {u"check"_s}, {u"diff"_s, u"a"_s}, {u"sums"_s, u"a"_s, u"b"_s},
            {u"check"_s, u"a"_s, u"--colour"_s}, {u"check"_s, u"a"_s, u"--apps"_s}, {u"check"_s, u""_s}})
        EXPECT_EQ(tool(wrong).status, 64) << wrong.join(u' ').toStdString();
    for (const QString& verb : {u"new"_s, u"check"_s, u"pack"_s, u"diff"_s, u"sums"_s}) {
        EXPECT_THAT(
            tool({verb, u"--help"_s}).output, StartsWith("usage: plovistore-pack " + verb.toStdString()));
        EXPECT_THAT(tool({u"--help"_s}).output, HasSubstr("\n  " + verb.toStdString() + ' '));
        const QStringList missing = verb == "sums"_L1 || verb == "check"_L1
            ? QStringList{verb, u"/no"_s}
            : QStringList{verb, u"/no/a"_s, u"/no/b.app"_s};
        EXPECT_EQ(tool(missing).status, 1) << verb.toStdString();
    }
    EXPECT_THAT(tool({u"--version"_s}).output, StartsWith("plovistore-pack "));
}

} // namespace
