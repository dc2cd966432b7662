#include "platform/desktop/ApplicationRegistry.h"
#include "platform/desktop/TestSession.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <filesystem>

using namespace Qt::StringLiterals;
using session::makeBundle;
using session::makeFolder;
using testing::Eq;
using testing::Optional;

namespace {

const QString brisko = u"org.orbanel.brisko"_s;
const std::string briskoID = "org.orbanel.brisko";

class ApplicationRegistryTest : public testing::Test {
protected:
    std::optional<Path> find(const QString& identifier)
    {
        return registry.applicationWithIdentifier(identifier);
    }

    QTemporaryDir temporary;
    const Path shared = makeFolder(toPath(temporary.path()) / "Applications");
    const Path own = toPath(temporary.path()) / "home/Applications";
    ApplicationRegistry registry{{shared, own}};
};

} // namespace

TEST_F(ApplicationRegistryTest, ABundleIsFoundWhateverItsName)
{
    makeBundle(shared / "Совсем другое имя.app", briskoID);
    makeBundle(shared / "Brisko", "org.orbanel.nobundle");

    EXPECT_THAT(find(brisko), Optional(shared / "Совсем другое имя.app"));
    for (const auto& unknown : {u""_s, u"org.orbanel.Brisko"_s, u"org.orbanel.nobundle"_s, u"../brisko"_s})
        EXPECT_THAT(find(unknown), Eq(std::nullopt)) << unknown.toStdString();
}

TEST_F(ApplicationRegistryTest, OfSeveralTheFirstFolderThenTheUpperThenTheFirstNameWins)
{
    for (const Path& bundle :
        {own / "Orbanel/B.app", own / "Orbanel/A.app", own / "Z.app", shared / "C.app", shared / "B.app"}) {
        makeBundle(bundle, briskoID);
        EXPECT_THAT(find(brisko), Optional(bundle));
    }
    makeBundle(own / "Orbanel/deeper/A.app", "org.orbanel.deep");
    makeBundle(own / ".trash/A.app", "org.orbanel.deleted");
    makeBundle(own / "Z.app/Inner.app", "org.orbanel.inner");
    for (const auto& unknown : {u"org.orbanel.deep"_s, u"org.orbanel.deleted"_s, u"org.orbanel.inner"_s})
        EXPECT_THAT(find(unknown), Eq(std::nullopt)) << unknown.toStdString();
}

TEST_F(ApplicationRegistryTest, EveryChangeShowsAtTheNextLook)
{
    const auto newer = u"org.orbanel.newer"_s;
    for (const Path& folder : {shared, shared / "Orbanel", own}) {
        makeBundle(folder / "A.app", briskoID);
        EXPECT_THAT(find(brisko), Optional(folder / "A.app"));

        std::filesystem::rename(folder / "A.app", folder / "B.app");
        EXPECT_THAT(find(brisko), Optional(folder / "B.app"));

        makeBundle(folder / "B.app", "org.orbanel.newer");
        EXPECT_THAT(find(newer), Optional(folder / "B.app"));
        EXPECT_THAT(find(brisko), Eq(std::nullopt));

        std::filesystem::rename(folder, toPath(temporary.path()) / "elsewhere");
        EXPECT_THAT(find(newer), Eq(std::nullopt));
        std::filesystem::rename(toPath(temporary.path()) / "elsewhere", folder);
        EXPECT_THAT(find(newer), Optional(folder / "B.app"));

        std::filesystem::remove_all(folder / "B.app");
        EXPECT_THAT(find(newer), Eq(std::nullopt));
    }
}

TEST_F(ApplicationRegistryTest, ABundleCopiedBitByBitShowsWhenItIsWhole)
{
    const auto link = u"org.orbanel.link"_s;
    makeFolder(own);
    std::filesystem::create_directory_symlink(own / "elsewhere", shared / "Link.app");
    EXPECT_THAT(find(brisko), Eq(std::nullopt));
    for (const Path part : {"Brisko.app", "Brisko.app/Contents"}) {
        makeFolder(shared / part);
        EXPECT_THAT(find(brisko), Eq(std::nullopt));
    }

    makeBundle(shared / "Brisko.app", briskoID);
    EXPECT_THAT(find(brisko), Optional(shared / "Brisko.app"));

    makeBundle(own / "elsewhere", "org.orbanel.link");
    makeBundle(shared / "Brisko.app", "org.orbanel.newer");
    EXPECT_THAT(find(link), Optional(shared / "Link.app"));
    makeBundle(own / "elsewhere", briskoID);
    EXPECT_THAT(find(link), Eq(std::nullopt));
}

TEST_F(ApplicationRegistryTest, OneLookKnowsEveryIdentifier)
{
    makeBundle(shared / "A.app", briskoID);
    makeBundle(own / "Orbanel/B.app", "org.orbanel.kadrilo");
    session::write(session::home() / "data/applications/org.orbanel.entry.desktop", "");

    const auto known = registry.identifiers();
    for (const auto& identifier : {brisko, u"org.orbanel.kadrilo"_s, u"org.orbanel.entry"_s})
        EXPECT_TRUE(known.contains(identifier)) << identifier.toStdString();
    EXPECT_FALSE(known.contains(u"org.orbanel.absent"_s));
}

TEST_F(ApplicationRegistryTest, ADesktopEntryCountsWhenItMayBeShownAndNoBundleIsThere)
{
    const std::string nothing = "[Desktop Entry]\nType=Application\nName=Brisko\n";
    const std::string head = nothing + "Exec=sh\n";
    const Path entries = session::home() / "data/applications";
    const Path entry = entries / (briskoID + ".desktop");
    session::write(entries / "folder/brisko.desktop", head);

    session::write(entry, head);
    EXPECT_THAT(find(brisko), Optional(entry));
    EXPECT_THAT(find(u"folder/brisko"_s), Eq(std::nullopt));

    for (const auto& content : {head + "Hidden=true\n", head + "TryExec=/no/such/program\n", nothing,
             nothing + "DBusActivatable=true\n", nothing + "Exec=\n"}) {
        session::write(entry, content);
        EXPECT_THAT(find(brisko), Eq(std::nullopt)) << content;
    }

    session::write(entry, head);
    makeBundle(own / "Brisko.app", briskoID);
    EXPECT_THAT(find(brisko), Optional(own / "Brisko.app"));
    std::filesystem::remove(entry);
}
