#include "support/FakePlatform.h"
#include "support/Samples.h"
#include "ui/model/WindowContent.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

const QString family = u"Приложения Orbanel. Все три — в одном месте."_s;
const QString session = u"Сохранённые в этом сеансе установочные архивы."_s;

class PagesTest : public testing::Test {
protected:
    /// The store of a bundle with these entries.
    Store& load(const Catalog& apps)
    {
        platform.files.content[platform.resource("catalog.json")] = sample::catalogFile(apps);
        return m_store.emplace();
    }

    static QStringList shown(const ViewState& view, const Store& store)
    {
        QStringList ids;
        const Selection entries = filtered(view, store);
        for (std::size_t position = 0; position < entries.size(); ++position)
            ids.append(entries[position].id);
        return ids;
    }

    FakePlatform platform;
    const StoreApp brisko = sample::brisko();
    const StoreApp kadrilo = sample::kadrilo();

private:
    std::optional<Store> m_store;
};

TEST_F(PagesTest, EverySectionListsItsOwnEntriesInCatalogOrder)
{
    StoreApp lower = brisko;
    lower.id = u"lower"_s;
    lower.category = u"утилиты"_s;
    StoreApp oddOne = brisko;
    oddOne.id = u"odd"_s;
    oddOne.category = u"Установленные"_s;
    Store& store = load({kadrilo, brisko, lower, oddOne});
    platform.workspace.registry[kadrilo.bundleID] = "/opt/Kadrilo.app";
    store.saved.insert(oddOne.id);
    store.saved.insert(kadrilo.id);
    const QStringList all = {kadrilo.id, brisko.id, lower.id, oddOne.id};
    const std::map<QString, QStringList> expected = {
        {u"Обзор"_s, all},
        {u"Все приложения"_s, all},
        {u"Утилиты"_s, {brisko.id}},
        {u"Медиа"_s, {kadrilo.id}},
        {u"Продуктивность"_s, {}},
        {u"Установленные"_s, {kadrilo.id, oddOne.id}},
        {u"Загрузки"_s, {kadrilo.id, oddOne.id}},
    };

    for (const Section& section : sections())
        EXPECT_EQ(shown({.section = section.title, .search = {}, .selected = {}}, store),
            expected.at(section.title));
}

TEST_F(PagesTest, TheSearchLooksInNameSubtitleAndDescriptionAsOneText)
{
    Store& store = load({brisko, kadrilo});
    for (const auto& [search, expected] : std::map<QString, QStringList>{
             {u" "_s, {brisko.id, kadrilo.id}},
             {u"BRISKO АККУРАТНО"_s, {brisko.id}},
             {u"фотографии\u0306"_s, {kadrilo.id}},
             {u"фотографии"_s, {}},
             {u"места они"_s, {brisko.id}},
             {u"места  они"_s, {}},
             {u"сразу. "_s, {}},
             {u"Утилиты"_s, {}},
             {u"порядок"_s, {}},
         })
        EXPECT_EQ(shown({.section = u"Все приложения"_s, .search = search, .selected = {}}, store), expected);
    EXPECT_EQ(shown({.section = u"Медиа"_s, .search = u"brisko"_s, .selected = {}}, store), QStringList());
}

TEST_F(PagesTest, EveryStateHasItsHeaderBlocksAndEmptyState)
{
    struct Case {
        QString section, search, title, subtitle;
        bool overview, downloads;
    };
    for (const auto& [section, search, title, subtitle, overview, downloads] : {
             Case{u"Обзор"_s, {}, u"Создано для твоего Mac."_s, family, true, false},
             Case{u"Обзор"_s, u" "_s, u"Результаты поиска"_s, family, false, false},
             Case{u"Загрузки"_s, u"x"_s, u"Результаты поиска"_s, session, false, true},
             Case{u"Медиа"_s, u"x"_s, u"Результаты поиска"_s, family, false, false},
             Case{u"Загрузки"_s, {}, u"Загрузки"_s, session, false, true},
             Case{u"Все приложения"_s, {}, u"Все приложения"_s, family, false, false},
         }) {
        SCOPED_TRACE(testing::PrintToString(section) + testing::PrintToString(search));
        const ViewState view{.section = section, .search = search, .selected = {}};

        const CatalogPage empty = catalog(view, load({}));

        EXPECT_EQ(empty.header, (PageHeader{title, subtitle}));
        EXPECT_EQ(empty.featured, std::nullopt);
        EXPECT_EQ(empty.footer.has_value(), overview);
        const auto& [symbol, heading, description] = std::get<EmptyState>(empty.body);
        EXPECT_EQ(symbol, downloads ? u"arrow.down.circle"_s : u"magnifyingglass"_s);
        EXPECT_EQ(heading, downloads ? u"Пока нет загрузок"_s : u"Ничего не найдено"_s);
        EXPECT_EQ(description,
            downloads ? u"Откройте приложение в каталоге и нажмите «Скачать ZIP»."_s
                      : u"Попробуйте другое название или выберите «Все приложения»."_s);
    }
    const CatalogPage page = catalog({}, load({kadrilo, brisko}));
    EXPECT_EQ(std::get<AppList>(page.body).title, u"Твоя коллекция"_s);
    EXPECT_EQ(page.footer, u"Установочные архивы уже внутри. Интернет и регистрация не нужны."_s);
    EXPECT_EQ(page.featured,
        (FeaturedCard{u"Меньше лишнего.\nБольше места."_s, u"Brisko"_s,
            u"Программы и их следы — под контролем."_s, u"Посмотреть приложение"_s,
            u"Меньше лишнего. Больше места. Brisko Программы и их следы — под контролем. Посмотреть приложение"_s,
            u"Brisko"_s, kadrilo}))
        << "the card speaks of Brisko and opens the first entry";
    Store& store = load({kadrilo});
    store.saved.insert(kadrilo.id);
    EXPECT_EQ(std::get<AppList>(catalog({.section = u"Загрузки"_s, .search = {}, .selected = {}}, store).body)
                  .title,
        std::nullopt);
}

TEST_F(PagesTest, NoDividerFollowsARowWithTheIdOfTheLastOne)
{
    StoreApp decomposed = brisko;
    decomposed.id = u"и\u0306"_s;
    StoreApp composed = brisko;
    composed.id = u"й"_s;

    const CatalogPage page = catalog({}, load({decomposed, kadrilo, composed}));

    const auto& list = std::get<AppList>(page.body);
    EXPECT_THAT((std::array{list.hasDivider(0), list.hasDivider(1), list.hasDivider(2)}),
        ElementsAre(false, true, false));
}

TEST_F(PagesTest, ARowShowsItsEntryAndWhatItsButtonsDo)
{
    Store& store = load({kadrilo, brisko});
    const QString meta = u"Утилиты · 2.4 · "_s + brisko.size();
    AppRowContent expected{u"Brisko"_s, u"Подробнее о Brisko"_s, u"Brisko"_s, brisko.subtitle, meta,
        u"Brisko, "_s + brisko.subtitle + u", "_s + meta,
        {brisko, u"Загрузить"_s, false, u"Скачать Brisko-2.4.zip"_s, u"Скачать Brisko в ZIP"_s}};
    EXPECT_EQ(appRow(brisko, *store.busy), expected);

    platform.bundles.installed["/Applications/Brisko.app"] = brisko.bundleID;
    const CatalogPage before = catalog({}, store);
    store.busy.insert(brisko.id);
    EXPECT_NE(before, catalog({}, store)) << "pages that show something else are different";

    expected.actions.primaryTitle = u"Открыть"_s;
    expected.actions.busy = true;
    EXPECT_EQ(appRow(brisko, *store.busy), expected);
    EXPECT_FALSE(appRow(kadrilo, *store.busy).actions.busy);
}

TEST_F(PagesTest, ThePageOfAnEntryNamesItsFactsItsBundleAndForBriskoAPicture)
{
    StoreApp capital = brisko;
    capital.id = u"Brisko"_s;
    const Store& store = load({});

    const DetailPage page = detail(brisko, store);

    EXPECT_THAT(page.facts,
        testing::IsSupersetOf({fact(u"ВЕРСИЯ"_s, u"2.4"_s), fact(u"РАЗМЕР ZIP"_s, brisko.size()),
            fact(u"КАТЕГОРИЯ"_s, u"Утилиты"_s), fact(u"СОВМЕСТИМОСТЬ"_s, brisko.compatibility())}));
    EXPECT_EQ(page.facts.front().accessibleName(), u"ВЕРСИЯ: 2.4"_s);
    EXPECT_EQ(
        (QStringList{page.icon, page.name, page.subtitle, page.author, page.headline, page.description}),
        (QStringList{
            u"Brisko"_s, u"Brisko"_s, brisko.subtitle, u"Orbanel"_s, brisko.headline, brisko.description}));
    EXPECT_EQ(page.features, brisko.features);
    EXPECT_EQ(page.actions, actionButtons(brisko, *store.busy));
    EXPECT_EQ(page.installText,
        u"Скачайте ZIP, откройте архив и перенесите Brisko.app в папку «Программы». На этом Mac уже установленное "_s
        u"приложение можно открыть прямо из магазина."_s);
    EXPECT_EQ(
        page.screenshot, (Screenshot{platform.resource("BriskoScreen.png"), u"Снимок экрана Brisko"_s}));
    EXPECT_EQ(detail(capital, store).screenshot, std::nullopt);
}

TEST_F(PagesTest, TheWindowFollowsWhatTheUserChose)
{
    Store& store = load({brisko});
    ViewState view{.section = u"Утилиты"_s, .search = u"x"_s, .selected = brisko};
    store.message.set(u"Готово."_s);

    WindowContent content = windowContent(view, store);

    EXPECT_EQ(content.title, u"Brisko"_s);
    EXPECT_EQ(std::get<DetailPage>(content.page), detail(brisko, store));
    EXPECT_EQ(content.sidebar.search, u"x"_s);
    EXPECT_EQ(content.message, (Message{u"PloviStore"_s, u"Готово."_s, u"Понятно"_s}));
    EXPECT_EQ(content.sidebar.brandImage, platform.resource("Brand.png"));
    for (std::size_t index = 0; index < sections().size(); ++index)
        EXPECT_EQ(content.sidebar.sections[index], (SectionItem{sections()[index], index == 2}));

    view.choose(u"Медиа"_s);
    store.message.set({});
    content = windowContent(view, store);

    EXPECT_EQ(content.title, u"Медиа"_s);
    EXPECT_EQ(std::get<CatalogPage>(content.page), catalog(view, store));
    EXPECT_EQ(content.sidebar.search, QString());
    EXPECT_EQ(content.message, std::nullopt);
    EXPECT_THAT(about(u"7.5"_s).text.toStdString(), testing::HasSubstr("7.5"));
}

} // namespace
