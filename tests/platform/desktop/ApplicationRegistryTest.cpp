#include "platform/desktop/ApplicationRegistry.h"
#include "platform/TestBundle.h"
#include "platform/desktop/TestSession.h"

#include <QSet>

using namespace Qt::StringLiterals;
using std::filesystem::rename;

namespace {

const QByteArray brisko = "org.orbanel.brisko";
const QByteArray newer = "org.orbanel.newer";

struct ApplicationRegistryTest : FolderTest {
    void make(const Path& bundle, const QByteArray& identifier)
    {
        makeBundle(bundle, xmlList(xmlIdentifier(identifier)));
    }

    /// An empty path when nothing is found.
    Path find(const QByteArray& identifier)
    {
        return registry.applicationWithIdentifier(QString::fromUtf8(identifier)).value_or(Path());
    }

    const Path shared = folder / "Applications", own = folder / "home/Applications";
    ApplicationRegistry registry{{shared, own}};
};

} // namespace

TEST_F(ApplicationRegistryTest, OfSeveralTheFirstFolderThenTheUpperThenTheFirstNameWins)
{
    for (const Path& bundle : {own / "Orbanel/B.app", own / "Orbanel/A.app", own / "Z.app",
             shared / "Совсем другое имя.app", shared / "B.app"}) {
        make(bundle, brisko);
        EXPECT_EQ(find(brisko), bundle);
    }
    for (const char* place : {"Newer", "Orbanel/deeper/A.app", ".trash/A.app", "B.app/Inner.app"})
        make(shared / place, newer);
    for (const QByteArray& unknown : {newer, QByteArray(), QByteArray("org.orbanel.Brisko")})
        EXPECT_EQ(find(unknown), Path()) << unknown.constData();
}

TEST_F(ApplicationRegistryTest, EveryChangeShowsAtTheNextLook)
{
    const Path elsewhere = folder / "elsewhere";
    for (const Path& place : {shared, shared / "Orbanel", own}) {
        const Path bundle = place / "A.app", renamed = place / "B.app";
        for (const Path& part : {bundle, bundle / "Contents"}) {
            std::filesystem::create_directories(part);
            EXPECT_EQ(find(brisko), Path());
        }
        make(bundle, brisko);
        EXPECT_EQ(find(brisko), bundle);
        rename(bundle, renamed);
        EXPECT_EQ(find(brisko), renamed);
        make(renamed, newer);
        EXPECT_EQ(find(newer), renamed);
        EXPECT_EQ(find(brisko), Path());
        rename(place, elsewhere);
        EXPECT_EQ(find(newer), Path());
        rename(elsewhere, place);
        EXPECT_EQ(find(newer), renamed);
        std::filesystem::remove_all(renamed);
        EXPECT_EQ(find(newer), Path());
    }

    const Path list = "Contents/Info.plist", linked = shared / "Linked.app";
    std::filesystem::create_directories(linked / "Contents");
    make(elsewhere, brisko);
    std::filesystem::create_symlink(elsewhere / list, linked / list);
    EXPECT_EQ(find(brisko), linked);
    make(elsewhere, newer);
    EXPECT_EQ(find(brisko), Path());
}

TEST_F(ApplicationRegistryTest, WhatHappensInAWatchedFolderIsToldOnceHoweverMuchItIs)
{
    FolderWatch watch;
    watch.restart();
    watch.add(folder);
    EXPECT_FALSE(watch.takeChange());
    for (int number = 0; number < 300; ++number)
        writeFile(folder / std::to_string(number), {});
    EXPECT_TRUE(watch.takeChange());
    EXPECT_FALSE(watch.takeChange());
}

TEST_F(ApplicationRegistryTest, ADesktopEntryCountsWhenItMayBeShownAndNoBundleIsThere)
{
    const QByteArray nothing = "[Desktop Entry]\nType=Application\nName=Brisko\n";
    const QByteArray head = nothing + "Exec=sh\n";
    const Path entries = session::home() / "data/applications";
    const Path entry = entries / "org.orbanel.brisko.desktop";
    writeFile(entries / "folder/brisko.desktop", head);
    EXPECT_EQ(find("folder/brisko"), Path());

    for (const QByteArray& content : {head + "Hidden=true\n", head + "TryExec=/no/such/program\n", nothing,
             nothing + "DBusActivatable=true\n", nothing + "Exec=\n", head}) {
        writeFile(entry, content);
        EXPECT_EQ(find(brisko), content == head ? entry : Path()) << content.constData();
    }
    make(own / "Brisko.app", brisko);
    EXPECT_EQ(find(brisko), own / "Brisko.app");
    std::filesystem::remove(entry);
}
