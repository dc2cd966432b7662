#include "ui/StoreView.h"

#include "ui/CatalogPageView.h"
#include "ui/DetailPageView.h"
#include "ui/UiTest.h"
#include "ui/kit/MessageSheet.h"
#include "ui/kit/SelectableText.h"
#include "ui/kit/Spinner.h"

#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class StoreViewTest : public UiTest {
protected:
    /// A refresh, and every other kind of change of the store.
    void changeEverything()
    {
        view().answer(request::Refresh());
        store().busy.insert(u"another"_s);
        store().saved.insert(u"another"_s);
        store().busy.remove(u"another"_s);
        settle();
    }

    int offset() { return shown<PageScroll>()->verticalScrollBar()->value(); }
};

TEST_F(StoreViewTest, TheTitleFollowsThePage)
{
    open({kadrilo, brisko});
    EXPECT_EQ(view().windowTitle(), u"Обзор"_s);

    press(u"Подробнее о Brisko"_s);
    EXPECT_EQ(view().windowTitle(), u"Brisko"_s);
    QTest::keyClicks(shown<QLineEdit>(), u"x"_s);
    settle();
    EXPECT_EQ(view().windowTitle(), u"Brisko"_s) << "typing leaves the page open";

    press(u"Назад к приложениям"_s);
    EXPECT_EQ(view().windowTitle(), u"Обзор"_s);
    EXPECT_EQ(shown<QLineEdit>()->text(), u"x"_s);
    press(u"Обзор"_s);
    EXPECT_EQ(shown<QLineEdit>()->text(), QString()) << "choosing the section again empties the search";
}

TEST_F(StoreViewTest, EveryWayBackLeavesAnEntrysPage)
{
    open({brisko});
    const std::vector<std::function<void(QWidget*)>> ways = {
        [](QWidget* widget) { QTest::keyClick(widget, Qt::Key_Escape); },
        [](QWidget* widget) { QTest::keyClick(widget, Qt::Key_Left, Qt::AltModifier); },
        [](QWidget* widget) { QTest::mouseClick(widget, Qt::BackButton); },
    };
    for (const auto& goBack : ways) {
        QAbstractButton* const opener = button(u"Подробнее о Brisko"_s);
        opener->setFocus();
        QTest::keyClick(opener, Qt::Key_Space);
        settle();
        EXPECT_EQ(QApplication::focusWidget(), button(u"Назад к приложениям"_s));

        goBack(QApplication::focusWidget());
        settle();

        EXPECT_EQ(view().windowTitle(), u"Обзор"_s);
        EXPECT_EQ(QApplication::focusWidget(), opener);
    }
}

TEST_F(StoreViewTest, ComingBackRestoresTheOffsetAndAnotherSectionStartsAtTheTop)
{
    open(many(100));
    shown<PageScroll>()->verticalScrollBar()->setValue(3000);
    settle();

    press(u"Скачать Brisko 26 в ZIP"_s);
    platform.jobs.runAll();
    settle();
    press(u"Понятно"_s);
    QTest::mouseClick(button(u"Подробнее о Brisko 26"_s), Qt::LeftButton);
    settle();
    EXPECT_EQ(offset(), 0);
    press(u"Назад к приложениям"_s);
    EXPECT_EQ(offset(), 3000);

    press(u"Все приложения"_s);
    EXPECT_EQ(offset(), 0);
}

TEST_F(StoreViewTest, AChangeOfTheStoreMovesNothingOnACatalogPage)
{
    open(many(100));
    shown<PageScroll>()->verticalScrollBar()->setValue(2000);
    settle();
    QLineEdit* const search = shown<QLineEdit>();
    QTest::keyClicks(search, u"brisko"_s);
    search->setSelection(1, 3);
    shown<PageScroll>()->verticalScrollBar()->setValue(500);
    settle();
    QAbstractButton* const pressed = button(u"Скачать Brisko 7 в ZIP"_s);
    pressed->setFocus();
    QTest::mousePress(pressed, Qt::LeftButton);

    changeEverything();

    EXPECT_TRUE(pressed->isDown());
    EXPECT_EQ(QApplication::focusWidget(), pressed);
    EXPECT_EQ(pressed->accessibleName(), u"Скачать Brisko 7 в ZIP"_s);
    EXPECT_EQ(offset(), 500);
    EXPECT_EQ(search->selectedText(), u"ris"_s);
}

TEST_F(StoreViewTest, AChangeOfTheStoreMovesNothingOnAnEntrysPage)
{
    open({brisko});
    view().resize(900, 620);
    press(u"Подробнее о Brisko"_s);
    auto* const description = shown<SelectableText>();
    description->setFocus();
    QTest::keyClick(description, Qt::Key_A, Qt::ControlModifier);
    shown<PageScroll>()->verticalScrollBar()->setValue(120);

    changeEverything();

    EXPECT_EQ(offset(), 120);
    EXPECT_EQ(QApplication::focusWidget(), description);
    EXPECT_EQ(description->textCursor().selectedText(), brisko.description);
}

TEST_F(StoreViewTest, AnApplicationInstalledElsewhereShowsAfterARefresh)
{
    open({brisko});
    platform.bundles.installed["/Applications/Brisko.app"] = brisko.bundleID;

    press(u"Обновить список установленных приложений"_s);
    press(u"Открыть"_s);

    EXPECT_THAT(platform.workspace.opened, ElementsAre("/Applications/Brisko.app"));
    press(u"Установленные"_s);
    EXPECT_NE(button(u"Открыть"_s), nullptr);
}

TEST_F(StoreViewTest, ASaveTurnsTheArrowIntoASpinnerAndEndsInAMessage)
{
    open({brisko, kadrilo});

    press(u"Загрузить"_s);

    EXPECT_FALSE(button(u"Скачать Brisko в ZIP"_s)->isEnabled());
    EXPECT_TRUE(button(u"Скачать Kadrilo в ZIP"_s)->isEnabled());
    EXPECT_NE(shown<Spinner>(), nullptr);

    platform.jobs.runAll();
    settle();

    EXPECT_TRUE(button(u"Скачать Brisko в ZIP"_s)->isEnabled());
    EXPECT_EQ(shown<Spinner>(), nullptr);
    EXPECT_TRUE(shown<MessageSheet>()->accessibleDescription().startsWith(u"Brisko сохранён."_s));
    EXPECT_EQ(QApplication::focusWidget(), button(u"Понятно"_s));
}

TEST_F(StoreViewTest, AMessageStaysUntilItIsDismissedAndTheNextOneOpensAgain)
{
    open({brisko});
    QAbstractButton* const before = button(u"Загрузить"_s);
    before->setFocus();
    for (const auto key : {Qt::Key_Escape, Qt::Key_Space, Qt::Key_Return}) {
        store().message.set(u"Первое"_s);
        store().message.set(u"A&B <b>x</b>"_s);
        settle();
        EXPECT_EQ(shown<MessageSheet>()->accessibleDescription(), u"A&B <b>x</b>"_s);

        QTest::keyClick(QApplication::focusWidget(), key);
        settle();

        EXPECT_EQ(*store().message, std::nullopt);
        EXPECT_EQ(shown<MessageSheet>(), nullptr);
        EXPECT_EQ(QApplication::focusWidget(), before);
    }
}

TEST_F(StoreViewTest, AMessageFromTheLoadingOfTheCatalogIsShownWithTheWindow)
{
    platform.files.readErrors[platform.resource("catalog.json")] = EACCES;

    open({});

    EXPECT_NE(shown<MessageSheet>(), nullptr);
}

TEST_F(StoreViewTest, TheKeyboardReachesEverythingInReadingOrder)
{
    open({brisko});
    shown<QLineEdit>()->setFocus();
    QStringList visited = {u"Поиск приложений"_s};
    while (visited.size() < 20) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const QWidget* const now = QApplication::focusWidget();
        const auto* const pressable = qobject_cast<const QAbstractButton*>(now);
        const QString name =
            now->accessibleName().isEmpty() && pressable ? pressable->text() : now->accessibleName();
        if (visited.contains(name))
            break;
        visited.append(name);
    }
    EXPECT_EQ(visited.mid(0, 9),
        (QStringList{u"Поиск приложений"_s, u"Обзор"_s, u"Все приложения"_s, u"Утилиты"_s, u"Медиа"_s,
            u"Продуктивность"_s, u"Установленные"_s, u"Загрузки"_s,
            u"Обновить список установленных приложений"_s}));
    EXPECT_TRUE(visited.value(9).startsWith(u"Меньше лишнего. Больше места. Brisko"_s));
    EXPECT_EQ(visited.value(10), u"Подробнее о Brisko"_s);
    EXPECT_TRUE(visited.value(11).startsWith(u"Brisko, Аккуратно"_s));
    EXPECT_EQ(visited.mid(12), (QStringList{u"Загрузить"_s, u"Скачать Brisko в ZIP"_s}));

    QAbstractButton* const first = button(u"Обзор"_s);
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Up);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), button(u"Все приложения"_s));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(view().windowTitle(), u"Все приложения"_s);
}

} // namespace
