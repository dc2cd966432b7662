#include "pack/trees/ArchiveWriting.h"
#include "pack/trees/FolderReading.h"
#include "tools/SampleCollection.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Sample = SampleCollection;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

QJsonDocument json(const std::string& text)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(text));
}

TEST(Pack, MakesAStoreThatPassesEveryTest)
{
    const Sample sample;

    const Ending packed =
        sample.pack(u"s.app"_s, {u"--json"_s, u"--program"_s, QStringLiteral(STORE_PROGRAM)});

    EXPECT_EQ(packed.status, 0) << packed.errors;
    const QJsonObject report = json(packed.output).object();
    EXPECT_EQ(report["format"_L1], 1);
    EXPECT_EQ(report["subject"_L1], u"c"_s);
    EXPECT_EQ(report["findings"_L1], QJsonArray());
    const QJsonValue entry = report["entries"_L1][0];
    EXPECT_EQ(entry["archive"_L1], u"Brisko.zip"_s);
    EXPECT_EQ(entry["bytes"_L1], sample.read("s.app/Contents/Resources/Packages/Brisko.zip").size());
    const Ending tested = sample.shell(u"s.app/Contents/MacOS/PloviStore --self-test"_s);
    EXPECT_EQ(tested.status, 0) << tested.errors;
    EXPECT_THAT(
        tested.output, StartsWith("PASS Brisko 2.4 SHA256 " + entry["sha256"_L1].toString().toStdString()));
    EXPECT_EQ(sample.tool({u"check"_s, u"s.app"_s, u"--strict"_s}).output, "0 errors, 0 warnings\n");
    EXPECT_EQ(sample.tool({u"sums"_s, u"s.app"_s}).output,
        sample.shell(u"find s.app -type f | LC_ALL=C sort | xargs sha256sum"_s).output);
    EXPECT_EQ(sample
                  .shell(u"unzip -q s.app/Contents/Resources/Packages/Alvi.zip && "
                         u"diff -r --no-dereference Alvi.app c/apps/Alvi.app && Alvi.app/start"_s)
                  .output,
        "org.example.Alvi\n");
}

TEST(Pack, GivesTheSameBytesWhoeverRunsItAndWhen)
{
    const Sample sample;
    ASSERT_EQ(sample.shell("umask 000 &&"_L1 + Sample::packing(u"c"_s, u"s.app"_s)).status, 0);

    const Ending other =
        sample.shell(u"mkdir d && tar -C c -cf - --sort=name . | tar -C d -xmf - && umask 077 && "
                     u"LC_ALL=ru_RU.KOI8-R TZ=Asia/Tokyo taskset -c 0"_s
            + Sample::packing(u"d"_s, u"t.app"_s));

    EXPECT_EQ(other.status, 0) << other.errors;
    EXPECT_EQ(
        sample
            .shell(u"diff -r s.app t.app && for s in s t; do (cd $s.app && "
                   u"find . -printf '%m %p\\n' | sort) >$s; done && diff s t && sed 's/ .*//' s | sort -u"_s)
            .output,
        "644\n755\n");
}

TEST(Pack, LeavesTheOldStoreUntilTheNewOneIsProved)
{
    const Sample sample;
    ASSERT_EQ(sample.pack(u"s.app"_s).status, 0);
    ASSERT_EQ(sample.shell(u"cp -a s.app old && sed -i '0,/red/s/red//' c/collection.json"_s).status, 0);
    using Case = std::tuple<QString, int, const char*>;
    for (const auto& [script, status, told] : {
             Case{Sample::packing(u"c"_s, u"s.app"_s) + u"--strict"_s, 2,
                 ": warning: \"tint\" is empty [text-empty]\n0 errors, 1 warning\n"},
             Case{u"sed '0,/tint/{/tint/d}' -i.good c/collection.json;"_s
                     + Sample::packing(u"c"_s, u"s.app"_s),
                 2, "[key-missing]\n1 error, 0 warnings\n"},
             Case{"mv c/collection.json.good c/collection.json; ulimit -f 8; trap '' XFSZ;"_L1
                     + Sample::packing(u"c"_s, u"s.app"_s),
                 1, ".png: File too large\n"},
             Case{"mkdir .s.app.new; flock .s.app.new"_L1 + Sample::packing(u"c"_s, u"s.app"_s), 1,
                 "plovistore-pack: another run is writing s.app\n"},
             Case{"cd / && "_L1 + QStringLiteral(PACK_PROGRAM) + u" pack $OLDPWD/c $OLDPWD/c"_s, 1,
                 "the name of a store ends with .app\n"},
             Case{"mkdir -p my.app/Contents/MacOS e.app/Contents; touch my.app/Contents/MacOS/my;"_L1
                     + Sample::packing(u"c"_s, u"my.app"_s),
                 1, "cannot replace my.app: it is no store\n"},
             Case{"touch note.app;"_L1 + Sample::packing(u"c"_s, u"note.app"_s), 1,
                 "cannot replace note.app: it is no store\n"},
             Case{Sample::packing(u"c"_s, u"s.app"_s) + u"--program c"_s, 1,
                 "cannot take the program from c: it is no store\n"},
         }) {
        const Ending ending = sample.shell(script);
        EXPECT_EQ(ending.status, status) << script.toStdString();
        EXPECT_THAT(ending.output + ending.errors, HasSubstr(told));
        EXPECT_EQ(sample.shell(u"diff -r s.app old"_s).status, 0) << told;
    }
    EXPECT_EQ(
        sample.shell(Sample::packing(u"c"_s, u"s.app/"_s) + " && "_L1 + Sample::packing(u"c"_s, u"e.app"_s))
            .status,
        0);
    EXPECT_EQ(sample.shell(u"diff -rq s.app old; find . -maxdepth 1 -name '.?*'"_s).output,
        "Files s.app/Contents/Resources/catalog.json and old/Contents/Resources/catalog.json differ\n");
}

TEST(Pack, AfterAKillTheOldStoreIsWholeAndTheNextRunClearsWhatIsLeft)
{
    const Sample sample;
    ASSERT_EQ(sample.pack(u"s.app"_s).status, 0);

    const Ending killed = sample.shell("cp -a s.app old; truncate -s 1T program.app/Contents/big;"_L1
        + Sample::packing(u"c"_s, u"s.app"_s)
        + u"& while kill -0 $! && [ ! -s .s.app.new/s.app/Contents/big ]; do :; done; kill -KILL $!; wait; "
          u"rm program.app/Contents/big; diff -r s.app old && ls .s.app.new/s.app/Contents/big"_s);

    EXPECT_EQ(killed.status, 0) << killed.output << killed.errors;
    ASSERT_EQ(sample.pack(u"s.app"_s).status, 0);
    EXPECT_EQ(sample.shell(u"diff -r s.app old; find . -maxdepth 1 -name '.?*'"_s).output, "");
}

TEST(Pack, SeesAFileThatChangesWhileItIsPacked)
{
    const Sample sample;
    const Path app = sample.path("c/apps/Alvi.app");
    for (const QString& change : {u"echo >>"_s, u"truncate -s 3"_s, u"touch -d 2001-01-01"_s}) {
        Findings findings;
        const Tree tree = readTree(app, {}, findings);
        ASSERT_EQ(sample.shell(change + u" c/apps/Alvi.app/Contents/MacOS/program"_s).status, 0);

        EXPECT_TRUE(writeArchive(tree, app, sample.path("a.zip"), {}, findings));

        ASSERT_EQ(findings.size(), 1U) << change.toStdString();
        EXPECT_EQ(codeText(findings.front().code), "changed-while-read");
    }
}

TEST(Check, TellsWhatItMayNotRead)
{
    const Sample sample;
    const QString other = geteuid() == 0 ? u"setpriv --reuid=65534 --clear-groups "_s : QString();

    const Ending ending =
        sample.shell(u"chmod 755 . && cd c/apps && "
                     u"chmod 0 Alvi.app/Contents/MacOS Bemmo.app/Contents/Info.plist && cd ../.. && "_s
            + other + QStringLiteral(PACK_PROGRAM) + u" check c; chmod 755 c/apps/Alvi.app/Contents/MacOS"_s);

    EXPECT_THAT(ending.output,
        HasSubstr("apps/Alvi.app: error: Contents/MacOS cannot be read: Permission denied [unreadable]"));
    EXPECT_THAT(ending.output,
        HasSubstr(
            "apps/Bemmo.app: error: Contents/Info.plist cannot be read: Permission denied [unreadable]"));
    EXPECT_EQ(
        sample
            .shell("chmod 444 c/apps; chmod 755 c;"_L1 + other + QStringLiteral(PACK_PROGRAM) + u" sums c"_s)
            .status,
        1);
}

TEST(Diff, TellsWhatChangedFromOneStoreToTheOther)
{
    const Sample sample;
    ASSERT_EQ(sample.pack(u"old.app"_s).status, 0);
    EXPECT_EQ(sample.tool({u"diff"_s, u"old.app"_s, u"old.app"_s}).status, 0);
    ASSERT_EQ(sample
                  .shell(u"sed -i '0,/red/s/red/blue/; s/\"alvi\"/\"new\"/' c/collection.json; "
                         u"sed -i s/ff0000/00ff00/ c/icons/Brisko.svg"_s)
                  .status,
        0);
    ASSERT_EQ(sample.pack(u"new.app"_s).status, 0);

    const Ending text = sample.tool({u"diff"_s, u"old.app"_s, u"new.app"_s});

    EXPECT_EQ(text.status, 2);
    EXPECT_THAT(text.output,
        StartsWith("added: Alvi 2.4\nremoved: Alvi 2.4\nchanged: Brisko: tint: \"red\" -> \"blue\"\nchanged: "
                   "Brisko: icon: \""));
    const QJsonObject object =
        json(sample.tool({u"diff"_s, u"old.app"_s, u"new.app"_s, u"--json"_s}).output).object();
    EXPECT_EQ(object["added"_L1][0]["id"_L1], u"new"_s);
    EXPECT_EQ(object["removed"_L1][0]["id"_L1], u"alvi"_s);
    EXPECT_EQ(object["changed"_L1][0]["changes"_L1][0]["after"_L1], u"blue"_s);
    sample.shell(u"echo >new.app/Contents/Resources/catalog.json"_s);
    EXPECT_THAT(sample.tool({u"diff"_s, u"old.app"_s, u"new.app"_s}).errors,
        HasSubstr("cannot read new.app/Contents/Resources/catalog.json: it is no catalog"));
}

TEST(New, MakesACollectionThatCanBePackedAtOnce)
{
    const Sample sample;
    ASSERT_EQ(sample.pack(u"s.app"_s).status, 0);
    ASSERT_EQ(sample
                  .shell(u"cd c/apps; for a in Alvi Brisko; do mkdir $a.app/Contents/Resources; "
                         u"cp ../../s.app/Contents/Resources/Alvi.icns $a.app/Contents/Resources/a.icns; "
                         u"sed -i 's|<dict>|<dict><key>CFBundleIconFile</key><string>a</string>|' "
                         u"$a.app/Contents/Info.plist; done"_s)
                  .status,
        0);

    EXPECT_THAT(sample.tool({u"new"_s, u"n"_s, u"c/apps/Alvi.app"_s, u"c/apps/Brisko.app/"_s}).output,
        HasSubstr("plovistore-pack check n\n"));

    const QJsonValue first = json(sample.read("n/collection.json").toStdString())[0];
    EXPECT_EQ(
        first.toObject().keys(), json(sample.read("c/collection.json").toStdString())[0].toObject().keys());
    for (const auto& [key, value] : {std::pair(u"id"_s, u"alvi"_s), {u"name"_s, u"Alvi"_s},
             {u"version"_s, u"2.4"_s}, {u"bundleID"_s, u"org.example.Alvi"_s}, {u"minimum"_s, u"13.0"_s},
             {u"archive"_s, u"Alvi-2.4.zip"_s}})
        EXPECT_EQ(first[key], value);
    EXPECT_EQ(sample.read("n/icons/Alvi.icns"), sample.read("s.app/Contents/Resources/Alvi.icns"));
    sample.shell(u"mv s.app/Contents/Resources/Brand.png n/icons/Alvi.png; rm n/icons/Alvi.icns"_s);
    EXPECT_EQ(sample.shell(Sample::packing(u"n"_s, u"n.app"_s)).status, 0);
    EXPECT_THAT(sample.tool({u"new"_s, u"n"_s, u"c/apps/Alvi.app"_s}).errors,
        HasSubstr("cannot make n: File exists"));
    EXPECT_THAT(sample.tool({u"new"_s, u"m"_s, u"c/apps/Alvi.app"_s, u"n/apps/Alvi.app"_s}).errors,
        HasSubstr("cannot add n/apps/Alvi.app: another application has its name\n"));
}

TEST(Tool, RefusesWrongArgumentsAndHelps)
{
    const Sample sample;
    for (const QStringList& wrong :
        {QStringList(), {u"paint"_s}, {u"check"_s}, {u"diff"_s, u"a"_s}, {u"sums"_s, u"a"_s, u"b"_s},
            {u"check"_s, u"a"_s, u"--colour"_s}, {u"check"_s, u"a"_s, u"--apps"_s}, {u"check"_s, u""_s}})
        EXPECT_EQ(sample.tool(wrong).status, 64) << wrong.join(u' ').toStdString();
    for (const QString& verb : {u"new"_s, u"bundle"_s, u"check"_s, u"pack"_s, u"diff"_s, u"sums"_s}) {
        EXPECT_THAT(sample.tool({verb, u"--help"_s}).output,
            HasSubstr("Usage: plovistore-pack " + verb.toStdString()));
        EXPECT_THAT(sample.tool({u"--help"_s}).output, HasSubstr("\n  " + verb.toStdString() + ' '));
        const QStringList missing{verb, u"--"_s, u"/no/a"_s, u"/no/b.app"_s};
        const bool takesOne = verb == "sums"_L1 || verb == "check"_L1;
        EXPECT_EQ(sample.tool(takesOne ? missing.first(3) : missing).status, 1) << verb.toStdString();
    }
    EXPECT_THAT(sample.tool({u"--version"_s}).output, StartsWith("plovistore-pack "));
    EXPECT_EQ(sample.shell(QStringLiteral(PACK_PROGRAM) + u" --help >/dev/full"_s).status, 1);
}

} // namespace
