#include "ui/model/ViewState.h"

#include "ui/model/ModelTest.h"

using namespace Qt::StringLiterals;

namespace {

class ViewStateTest : public ModelTest {
protected:
    QStringList shown(const ViewState& view, const Store& store)
    {
        QStringList ids;
        for (const StoreApp* app : filtered(view, store))
            ids.append(app->id);
        return ids;
    }
};

TEST_F(ViewStateTest, ChoosingASectionStartsItAnew)
{
    ViewState view{.section = u"Утилиты"_s, .search = u"x"_s, .selected = brisko};
    EXPECT_EQ(view.title(), u"Brisko"_s);

    view.choose(u"Обзор"_s);

    EXPECT_EQ(view.title(), u"Обзор"_s);
    EXPECT_TRUE(view.isOverview());
    EXPECT_EQ(view.search, QString());
    view.search = u" "_s;
    EXPECT_FALSE(view.isOverview());
}

TEST_F(ViewStateTest, EverySectionListsItsOwnEntriesInCatalogOrder)
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

    ASSERT_EQ(sections().size(), expected.size());
    for (const Section& section : sections())
        EXPECT_EQ(shown({.section = section.title, .search = {}, .selected = {}}, store),
            expected.at(section.title));
}

TEST_F(ViewStateTest, TheSearchLooksInNameSubtitleAndDescriptionAsOneText)
{
    const Store& store = load({brisko, kadrilo});
    struct Case {
        QString search;
        QStringList expected;
    };
    for (const auto& [search, expected] : {
             Case{u" "_s, {brisko.id, kadrilo.id}},
             Case{u"BRISKO АККУРАТНО"_s, {brisko.id}},
             Case{u"фотографии\u0306"_s, {kadrilo.id}},
             Case{u"фотографии"_s, {}},
             Case{u"места они"_s, {brisko.id}},
             Case{u"места  они"_s, {}},
             Case{u"сразу. "_s, {}},
             Case{u"Утилиты"_s, {}},
             Case{u"порядок"_s, {}},
         })
        EXPECT_EQ(shown({.section = u"Все приложения"_s, .search = search, .selected = {}}, store), expected);
    EXPECT_EQ(shown({.section = u"Медиа"_s, .search = u"brisko"_s, .selected = {}}, store), QStringList());
}

} // namespace
