#include "ui/model/CatalogPage.h"

#include "ui/model/AppRowContent.h"
#include "ui/model/ModelTest.h"

using namespace Qt::StringLiterals;

namespace {

using CatalogPageTest = ModelTest;

const QString family = u"Приложения Orbanel. Все три — в одном месте."_s;
const QString session = u"Сохранённые в этом сеансе установочные архивы."_s;

TEST_F(CatalogPageTest, EveryStateHasItsHeaderBlocksAndEmptyState)
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
        EXPECT_EQ(std::get<EmptyState>(empty.body).title,
            downloads ? u"Пока нет загрузок"_s : u"Ничего не найдено"_s);

        Store& store = load({kadrilo});
        store.saved.insert(kadrilo.id);
        const CatalogPage full =
            catalog({.section = section, .search = search.trimmed(), .selected = {}}, store);

        const auto* const list = std::get_if<AppList>(&full.body);
        EXPECT_EQ(list != nullptr, search.trimmed().isEmpty()) << "nothing matches x";
        if (search.isEmpty()) {
            EXPECT_EQ(list->title, overview ? std::optional(u"Твоя коллекция"_s) : std::nullopt);
        }
    }
}

TEST_F(CatalogPageTest, TheCardSpeaksOfBriskoAndOpensTheFirstEntry)
{
    const CatalogPage page = catalog({}, load({kadrilo, brisko}));

    ASSERT_TRUE(page.featured);
    EXPECT_EQ(page.featured->icon, u"Brisko"_s);
    EXPECT_EQ(page.featured->slogan, u"Меньше лишнего.\nБольше места."_s);
    EXPECT_EQ(page.featured->target, kadrilo);
}

TEST_F(CatalogPageTest, ADividerFollowsEveryRowWhoseIdIsNotTheLastOnes)
{
    StoreApp decomposed = brisko;
    decomposed.id = u"и\u0306"_s;
    StoreApp composed = brisko;
    composed.id = u"й"_s;

    const CatalogPage page = catalog({}, load({decomposed, kadrilo, composed}));

    const auto& list = std::get<AppList>(page.body);
    EXPECT_FALSE(list.hasDivider(0)) << "the same id as the last one";
    EXPECT_TRUE(list.hasDivider(1));
    EXPECT_FALSE(list.hasDivider(2));
}

TEST_F(CatalogPageTest, ARowShowsItsEntryAndWhatItsButtonsDo)
{
    Store& store = load({brisko});

    EXPECT_EQ(appRow(brisko),
        (AppRowContent{
            u"Brisko"_s, brisko.subtitle, u"Утилиты · 2.4 · "_s + brisko.size(), u"Подробнее о Brisko"_s}));
    EXPECT_EQ(actionButtons(brisko, store),
        (ActionButtonsContent{
            u"Загрузить"_s, false, u"Скачать Brisko-2.4.zip"_s, u"Скачать Brisko в ZIP"_s}));

    platform.bundles.installed["/Applications/Brisko.app"] = brisko.bundleID;
    store.busy.insert(brisko.id);

    EXPECT_EQ(actionButtons(brisko, store).primaryTitle, u"Открыть"_s);
    EXPECT_TRUE(actionButtons(brisko, store).busy);
    EXPECT_FALSE(actionButtons(kadrilo, store).busy);
}

} // namespace
