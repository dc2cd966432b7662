#include "platform/desktop/ApplicationRegistry.h"
#include "platform/desktop/TestSession.h"

#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <chrono>
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
        return m_registry.applicationWithIdentifier(identifier);
    }

    /// Returns when the index of the shared folder need no longer be made anew at every look.
    void settle()
    {
        ASSERT_TRUE(QTest::qWaitFor([this] {
            struct stat status { };
            ::stat(shared.c_str(), &status);
            const auto changed = status.st_ctim.tv_sec * 1'000'000'000LL + status.st_ctim.tv_nsec;
            const auto now = std::chrono::system_clock::now().time_since_epoch();
            return now - std::chrono::nanoseconds(changed) > std::chrono::milliseconds(60);
        }));
        find(u"org.orbanel.other"_s);
    }

private:
    QTemporaryDir m_folder;

protected:
    const Path shared = makeFolder(toPath(m_folder.path()) / "Applications");
    const Path own = toPath(m_folder.path()) / "home/Applications";

private:
    ApplicationRegistry m_registry{{shared, own}};
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

TEST_F(ApplicationRegistryTest, TheFirstFolderThenTheFirstNameWins)
{
    makeBundle(own / "A.app", briskoID);
    EXPECT_THAT(find(brisko), Optional(own / "A.app"));

    makeBundle(shared / "C.app", briskoID);
    EXPECT_THAT(find(brisko), Optional(shared / "C.app"));

    makeBundle(shared / "B.app", briskoID);
    EXPECT_THAT(find(brisko), Optional(shared / "B.app"));
}

TEST_F(ApplicationRegistryTest, EveryChangeShowsAtTheNextLook)
{
    for (const bool isSettled : {false, true}) {
        SCOPED_TRACE(isSettled);
        const auto wait = [&] { return isSettled ? settle() : void(); };

        wait();
        makeBundle(shared / "A.app", briskoID);
        EXPECT_THAT(find(brisko), Optional(shared / "A.app"));

        wait();
        std::filesystem::rename(shared / "A.app", shared / "B.app");
        EXPECT_THAT(find(brisko), Optional(shared / "B.app"));

        wait();
        makeBundle(shared / "B.app", "org.orbanel.newer");
        EXPECT_THAT(find(brisko), Eq(std::nullopt));
        EXPECT_THAT(find(u"org.orbanel.newer"_s), Optional(shared / "B.app"));

        wait();
        std::filesystem::remove_all(shared / "B.app");
        EXPECT_THAT(find(u"org.orbanel.newer"_s), Eq(std::nullopt));
    }
}

TEST_F(ApplicationRegistryTest, ABundleCopiedBitByBitShowsWhenItIsWhole)
{
    makeFolder(shared / "Brisko.app/Contents");
    std::filesystem::create_directory_symlink(own / "elsewhere", shared / "Link.app");
    settle();
    EXPECT_THAT(find(brisko), Eq(std::nullopt));

    makeBundle(own / "elsewhere", briskoID);
    EXPECT_THAT(find(brisko), Optional(shared / "Link.app"));

    makeBundle(shared / "Brisko.app", briskoID);
    EXPECT_THAT(find(brisko), Optional(shared / "Brisko.app"));
}

TEST_F(ApplicationRegistryTest, ADesktopEntryCountsWhenItMayBeShownAndNoBundleIsThere)
{
    const std::string head = "[Desktop Entry]\nType=Application\nName=Brisko\nExec=sh\n";
    const Path entries = session::home() / "data/applications";
    const Path entry = entries / (briskoID + ".desktop");
    session::write(entries / "folder/brisko.desktop", head);

    session::write(entry, head);
    EXPECT_THAT(find(brisko), Optional(entry));
    EXPECT_THAT(find(u"folder/brisko"_s), Eq(std::nullopt));

    for (const std::string line : {"Hidden=true\n", "TryExec=/no/such/program\n"}) {
        session::write(entry, head + line);
        EXPECT_THAT(find(brisko), Eq(std::nullopt)) << line;
    }

    session::write(entry, head);
    makeBundle(own / "Brisko.app", briskoID);
    EXPECT_THAT(find(brisko), Optional(own / "Brisko.app"));
    std::filesystem::remove(entry);
}
