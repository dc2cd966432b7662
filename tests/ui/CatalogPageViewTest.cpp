#include "ui/CatalogPageView.h"

#include "ui/AppIcon.h"
#include "ui/AppRow.h"
#include "ui/UiTest.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class CatalogPageViewTest : public UiTest {
protected:
    QScrollBar& scrollBar() { return *shown<PageScroll>()->verticalScrollBar(); }
};

TEST_F(CatalogPageViewTest, OnlyRowsNearTheViewExist)
{
    open(many(20'000));
    scrollBar().setValue(scrollBar().maximum());
    settle();

    EXPECT_NE(button(u"Скачать Brisko 19999 в ZIP"_s), nullptr);
    EXPECT_LT(view().findChildren<AppRow*>().size(), 40);
}

TEST_F(CatalogPageViewTest, TheTabKeyWalksThroughTheWholeList)
{
    open(many(50));
    press(u"Все приложения"_s);
    button(u"Скачать Brisko 0 в ZIP"_s)->setFocus();

    for (int number = 1; number < 50; ++number) {
        for (int stop = 0; stop < 4; ++stop)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        settle();
        ASSERT_EQ(QApplication::focusWidget()->accessibleName(), u"Скачать Brisko %1 в ZIP"_s.arg(number));
        ASSERT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty()) << "scrolled into view";
    }
}

TEST_F(CatalogPageViewTest, TheFocusedRowKeepsItsEntryWhenItLeavesTheView)
{
    open(many(200));
    QAbstractButton* const focused = button(u"Скачать Brisko 0 в ZIP"_s);
    focused->setFocus();

    for (int offset = 0; offset < 10'000; offset += 700)
        scrollBar().setValue(offset);
    settle();

    EXPECT_EQ(QApplication::focusWidget(), focused);
    EXPECT_EQ(focused->accessibleName(), u"Скачать Brisko 0 в ZIP"_s);
}

TEST_F(CatalogPageViewTest, AnIconThatCannotBeReadTakesNoRoom)
{
    StoreApp noIcon = kadrilo;
    noIcon.name = u"Zvon"_s;
    open({brisko, noIcon});
    press(u"Все приложения"_s);

    const auto left = [this](const QString& name) {
        QAbstractButton* const texts = button(name);
        return texts->mapTo(&view(), texts->contentsRect().topLeft()).x();
    };
    const QString withIcon =
        QStringList{u"Brisko"_s, brisko.subtitle, u"Утилиты · 2.4 · "_s + brisko.size()}.join(u", "_s);
    const QString without =
        QStringList{u"Zvon"_s, noIcon.subtitle, u"Медиа · 1.8 · "_s + noIcon.size()}.join(u", "_s);

    EXPECT_EQ(left(withIcon) - left(without), 64 + 17);
}

TEST_F(CatalogPageViewTest, AnIconKeepsItsProportionsInItsSquare)
{
    platform.files.content[platform.resource("Wide.icns")] = png(200, 100);
    AppIcon icon;

    icon.present(u"Wide"_s);

    EXPECT_EQ(icon.sizeHint(), QSize(64, 64));
    icon.resize(icon.sizeHint());
    EXPECT_EQ(icon.imageRect(), QRectF(0, 16, 64, 32));
}

} // namespace
