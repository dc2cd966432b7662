#include "store/Store.h"

#include "store/ArchiveJob.h"
#include "support/FakePlatform.h"
#include "support/Samples.h"

#include <gmock/gmock.h>

#include <cerrno>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Path destination = "/home/user/Downloads/Brisko-2.4.zip";

class StoreTest : public testing::Test {
protected:
    StoreTest()
    {
        platform.files.content[platform.resource("catalog.json")] =
            sample::catalogFile({brisko, sample::kadrilo(), brisko});
        platform.files.content[brisko.packageURL()] = "archive of Brisko";
        platform.savePanel.answer = destination;
    }

    FakePlatform platform;
    StoreApp brisko = sample::brisko();
};

TEST_F(StoreTest, LoadsTheCatalogInTheOrderOfTheFile)
{
    const Store store;

    EXPECT_THAT(*store.apps, ElementsAre(brisko, sample::kadrilo(), brisko));
    EXPECT_EQ(*store.message, std::nullopt);
    EXPECT_EQ(*store.revision, 0);
}

TEST_F(StoreTest, SaysWhyTheCatalogCannotBeRead)
{
    QByteArray& file = platform.files.content[platform.resource("catalog.json")];
    for (const QByteArray& content : {QByteArray("no JSON"), QByteArray("[{}]")}) {
        file = content;
        const Store store;

        EXPECT_THAT(*store.apps, IsEmpty());
        EXPECT_TRUE(store.message->value_or(QString()).startsWith(u"Не удалось прочитать каталог: "_s));
    }

    platform.files.content.clear();
    EXPECT_EQ(
        *Store().message, u"Не удалось прочитать каталог: "_s + systemFailure(ENOENT).localizedDescription);
}

TEST_F(StoreTest, AnnouncesEveryWriteBeforeItHappens)
{
    Store store;
    QStringList announced;
    QObject::connect(&store, &Store::objectWillChange, [&] {
        announced.append(
            u"%1 %2 %3"_s.arg(store.message->value_or(u"-"_s)).arg(store.saved->size()).arg(*store.revision));
    });

    store.message.set(u"a"_s);
    store.message.set(u"a"_s);
    store.saved.insert(u"й"_s);
    store.saved.insert(u"и\u0306"_s);
    store.revision.increment();
    store.saved.remove(u"й"_s);

    EXPECT_EQ(
        announced, (QStringList{u"- 0 0"_s, u"a 0 0"_s, u"a 0 0"_s, u"a 1 0"_s, u"a 1 0"_s, u"a 1 1"_s}));
    EXPECT_THAT(*store.saved, IsEmpty());
}

TEST_F(StoreTest, EndsTheProgramWhenAnotherThreadWrites)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    Store store;

    EXPECT_DEATH(std::thread([&] { store.revision.increment(); }).join(), "away from its thread");
}

TEST_F(StoreTest, AsksWhereToSaveUnderTheEntrysNames)
{
    platform.savePanel.answer.reset();
    Store store;
    int changes = 0;
    QObject::connect(&store, &Store::objectWillChange, [&] { ++changes; });

    store.save(brisko);
    platform.userFolders.downloads.reset();
    store.save(brisko);

    EXPECT_THAT(platform.savePanel.shown,
        ElementsAre(SavePanelSetup{u"Скачать Brisko"_s, u"Brisko-2.4.zip"_s, "/home/user/Downloads"},
            SavePanelSetup{u"Скачать Brisko"_s, u"Brisko-2.4.zip"_s, std::nullopt}));
    EXPECT_EQ(changes, 0) << "a cancelled panel changes nothing";
    EXPECT_THAT(platform.jobs.background, IsEmpty());
}

TEST_F(StoreTest, SavesAnArchiveWhoseDigestIsRight)
{
    brisko.bytes = 1;
    Store store;
    std::vector<std::pair<bool, bool>> busyAndMessage;
    QObject::connect(&store, &Store::objectWillChange,
        [&] { busyAndMessage.emplace_back(!store.busy->empty(), store.message->has_value()); });

    store.save(brisko);

    EXPECT_THAT(*store.busy, ElementsAre(brisko.id));
    EXPECT_FALSE(platform.files.content.contains(destination)) << "nothing is written on the main thread";

    platform.jobs.runAll();

    EXPECT_EQ(platform.files.content[destination], "archive of Brisko");
    EXPECT_THAT(*store.busy, IsEmpty());
    EXPECT_THAT(*store.saved, ElementsAre(brisko.id));
    EXPECT_THAT(platform.workspace.revealed, ElementsAre(destination));
    EXPECT_EQ(*store.message,
        u"Brisko сохранён. Распакуйте ZIP и перенесите Brisko.app в папку «Программы». Сборка подписана "
        u"локально и не "
        u"прошла нотарификацию Apple; macOS может запросить разрешение на первый запуск."_s);
    EXPECT_THAT(busyAndMessage,
        ElementsAre(
            std::pair(false, false), std::pair(true, false), std::pair(true, false), std::pair(true, true)))
        << "busy in, saved in, the message, busy out";
}

TEST_F(StoreTest, ReportsAFailedSaveAndKeepsTheOldFile)
{
    using Case = std::tuple<const char*, std::function<void(FakePlatform&, StoreApp&)>, QString>;
    const QString damaged = u"Сборка повреждена. Переустановите PloviStore."_s;
    for (const auto& [situation, arrange, expected] : {
             Case{"damaged", [](auto&p, auto&app) { p.files.content[app.packageURL()] = "x"; }, damaged},
             Case{"digest in capitals", [](auto&, auto&app) { app.sha256 = app.sha256.toUpper(); }, damaged},
             Case{"archive missing", [](auto&p, auto&app) { p.files.content.erase(app.packageURL()); },
                 systemFailure(ENOENT).localizedDescription},
             Case{"disk full", [](auto&p, auto&) { p.files.writeErrors[destination] = ENOSPC; },
                 systemFailure(ENOSPC).localizedDescription},
         }) {
        SCOPED_TRACE(situation);
        FakePlatform machine;
        machine.files.content = {{brisko.packageURL(), "archive of Brisko"}, {destination, "older copy"},
            {machine.resource("catalog.json"), "[]"}};
        machine.savePanel.answer = destination;
        Store store;
        StoreApp app = brisko;
        arrange(machine, app);

        store.save(app);
        machine.jobs.runAll();

        EXPECT_EQ(*store.message, u"Не удалось сохранить Brisko: "_s + expected);
        EXPECT_EQ(machine.files.content[destination], "older copy");
        EXPECT_THAT(*store.busy, IsEmpty());
        EXPECT_THAT(*store.saved, IsEmpty());
        EXPECT_THAT(machine.workspace.revealed, IsEmpty());
    }
    EXPECT_EQ(damagedArchive(), (Failure{u"PloviStore"_s, 1, damaged}));
}

TEST_F(StoreTest, SavesDifferentEntriesAtOnceButEachOnlyOnce)
{
    StoreApp twin = brisko;
    twin.id = u"twin"_s;
    Store store;

    store.save(brisko);
    store.save(twin);
    store.save(brisko);
    store.launch(brisko);

    EXPECT_THAT(*store.busy, ElementsAre(brisko.id, twin.id));
    EXPECT_EQ(platform.savePanel.shown.size(), 2U);

    platform.jobs.runAll();
    store.save(brisko);
    platform.jobs.runAll();

    EXPECT_EQ(platform.savePanel.shown.size(), 3U);
    EXPECT_THAT(*store.saved, ElementsAre(brisko.id, twin.id));
}

TEST_F(StoreTest, ASaveOutlivesTheStore)
{
    {
        Store store;
        store.save(brisko);
    }

    platform.jobs.runAll();

    EXPECT_EQ(platform.files.content[destination], "archive of Brisko");
}

TEST_F(StoreTest, OpensAnInstalledApplicationAndReportsOnlyAFailure)
{
    const Path installed = "/Applications/Brisko.app";
    platform.bundles.installed[installed] = brisko.bundleID;
    Store store;
    int changes = 0;
    QObject::connect(&store, &Store::objectWillChange, [&] { ++changes; });

    store.launch(brisko);
    platform.jobs.runAll();

    EXPECT_THAT(platform.workspace.opened, ElementsAre(installed));
    EXPECT_EQ(changes, 0);

    platform.workspace.outcome = tl::unexpected(systemFailure(ENOEXEC));
    store.launch(brisko);
    EXPECT_EQ(changes, 0) << "the answer may come on another thread";
    platform.jobs.runAll();

    EXPECT_EQ(*store.message, u"Не удалось открыть Brisko: "_s + systemFailure(ENOEXEC).localizedDescription);
    EXPECT_THAT(platform.savePanel.shown, IsEmpty());
}

TEST_F(StoreTest, LaunchingWhatIsNotInstalledSavesIt)
{
    Store store;

    store.launch(brisko);

    EXPECT_THAT(*store.busy, ElementsAre(brisko.id));
    EXPECT_THAT(platform.workspace.opened, IsEmpty());
}

} // namespace
