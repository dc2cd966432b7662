#include "ui/model/DetailPage.h"

#include "ui/model/ModelTest.h"

using namespace Qt::StringLiterals;

namespace {

using DetailPageTest = ModelTest;

TEST_F(DetailPageTest, StatesTheFactsOfTheBuild)
{
    EXPECT_THAT(detail(kadrilo).facts,
        testing::ElementsAre(fact(u"ВЕРСИЯ"_s, u"1.8"_s), fact(u"РАЗМЕР ZIP"_s, kadrilo.size()),
            fact(u"КАТЕГОРИЯ"_s, u"Медиа"_s), fact(u"СОВМЕСТИМОСТЬ"_s, kadrilo.compatibility())));
}

TEST_F(DetailPageTest, NamesTheBundleToInstall)
{
    EXPECT_EQ(detail(brisko).installText,
        u"Скачайте ZIP, откройте архив и перенесите Brisko.app в папку «Программы». На этом Mac уже "
        u"установленное "
        u"приложение можно открыть прямо из магазина."_s);
}

TEST_F(DetailPageTest, ShowsAScreenshotOfTheFeaturedApplicationAlone)
{
    StoreApp capital = brisko;
    capital.id = u"Brisko"_s;

    EXPECT_EQ(detail(brisko).screenshot, platform.resource("BriskoScreen.png"));
    EXPECT_EQ(detail(capital).screenshot, std::nullopt);
    EXPECT_EQ(detail(kadrilo).screenshot, std::nullopt);
}

} // namespace
