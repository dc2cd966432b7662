#include "catalog/StoreApp.h"

#include "catalog/Fields.h"
#include "support/FakePlatform.h"
#include "support/Samples.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

TEST(StoreApp, EqualsAnEntryWhoseEveryFieldIsEqual)
{
    const StoreApp brisko = sample::brisko();
    const StoreApp other = sample::kadrilo();

    EXPECT_EQ(brisko, sample::brisko());
    forEachField([&](CodingKeys key, auto field) {
        StoreApp changed = brisko;
        changed.*field = other.*field;
        EXPECT_NE(changed, brisko) << keyText(key);
        EXPECT_NE(std::hash<StoreApp>()(changed), std::hash<StoreApp>()(brisko)) << keyText(key);
    });
    StoreApp reordered = brisko;
    reordered.features.swapItemsAt(0, 1);
    EXPECT_NE(reordered, brisko);
}

TEST(StoreApp, EqualsAndHashesAlikeInAnotherSpellingOfTheSameCharacters)
{
    StoreApp composed = sample::brisko();
    composed.name = u"Й"_s;
    composed.features = {u"ё"_s};
    StoreApp decomposed = composed;
    decomposed.name = u"И\u0306"_s;
    decomposed.features = {u"е\u0308"_s};

    EXPECT_EQ(composed, decomposed);
    EXPECT_EQ(std::hash<StoreApp>()(composed), std::hash<StoreApp>()(decomposed));
}

TEST(StoreApp, NamesTheProcessorsItRunsOn)
{
    using Case = std::tuple<QString, QString, QString>;
    for (const auto& [minimum, architecture, expected] : {
             Case{u"13"_s, u"arm64 x86_64"_s, u"macOS 13+ · Apple Silicon и Intel"_s},
             Case{u"13"_s, u"arm64"_s, u"macOS 13+ · Apple Silicon"_s},
             Case{u"13"_s, u"X86_64"_s, u"macOS 13+ · Apple Silicon"_s},
             Case{u""_s, u""_s, u"macOS + · Apple Silicon"_s},
         }) {
        StoreApp app = sample::brisko();
        app.minimum = minimum;
        app.architecture = architecture;
        EXPECT_EQ(app.compatibility(), expected);
    }
}

TEST(StoreApp, KeepsANameThatIsAnAbsolutePathBelowItsFolders)
{
    FakePlatform platform;
    StoreApp app = sample::brisko();
    app.name = app.archive = u"/etc/x"_s;
    const Path installed = "/Applications/etc/x.app";
    platform.bundles.installed[installed] = platform.bundles.installed["/etc/x.app"] = app.bundleID;

    EXPECT_EQ(app.packageURL(), platform.resource("Packages/etc/x"));
    EXPECT_EQ(app.installedURL(), installed);
}

TEST(StoreApp, IsInstalledWhereABundleOfItsNameHasItsIdentifier)
{
    const Path shared = "/Applications/Brisko.app";
    const Path own = "/home/user/Applications/Brisko.app";
    const Path elsewhere = "/opt/Renamed.app";
    const QString right = sample::brisko().bundleID;
    const QString wrong = u"org.example.other"_s;
    using Case =
        std::tuple<const char*, std::map<Path, QString>, std::map<QString, Path>, std::optional<Path>>;
    for (const auto& [situation, bundles, registry, expected] : {
             Case{"nowhere", {}, {}, {}},
             Case{"both folders", {{shared, right}, {own, right}}, {}, shared},
             Case{"a stranger under its name", {{shared, wrong}, {own, right}}, {}, own},
             Case{"only strangers", {{shared, wrong}, {own, wrong}}, {}, {}},
             Case{"known to the system", {{shared, wrong}}, {{right, elsewhere}}, elsewhere},
             Case{"letter case differs", {{shared, right.toUpper()}}, {}, {}},
         }) {
        SCOPED_TRACE(situation);
        FakePlatform platform;
        platform.bundles.installed = bundles;
        platform.workspace.registry = registry;

        EXPECT_EQ(sample::brisko().installedURL(), expected);
    }
}

} // namespace
