#include "ui/StoreView.h"

#include "ui/AppRow.h"
#include "ui/AppRowList.h"
#include "ui/Sidebar.h"
#include "ui/UiTest.h"
#include "ui/kit/MessageSheet.h"
#include "ui/kit/PageScroll.h"
#include "ui/kit/PlainButton.h"
#include "ui/kit/SelectableText.h"
#include "ui/kit/Spinner.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class PaintCounter : public QObject {
public:
    PaintCounter() { qApp->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

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

    QScrollBar& scrollBar() { return *shown<PageScroll>()->verticalScrollBar(); }
    int offset() { return scrollBar().value(); }

    /// As a screen reader presses.
    void pressAccessibly(const QString& name)
    {
        auto* const node = QAccessible::queryAccessibleInterface(button(name));
        node->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        settle();
    }

    void expectRowsAreReadFromTopToBottom()
    {
        auto* const list = QAccessible::queryAccessibleInterface(shown<AppRowList>());
        std::vector<int> tops;
        for (int index = 0; index < list->childCount(); ++index) {
            if (!list->child(index)->state().invisible)
                tops.push_back(list->child(index)->rect().y());
        }
        EXPECT_GT(tops.size(), 1U);
        EXPECT_TRUE(std::ranges::is_sorted(tops));
    }
};

TEST_F(StoreViewTest, TheTitleFollowsThePageAndOnlyEscapeInItsFieldEmptiesASearch)
{
    open({kadrilo, brisko});
    press(u"Подробнее о Brisko"_s);
    QLineEdit* const search = shown<QLineEdit>();
    QTest::keyClicks(search, u"x"_s);
    settle();
    EXPECT_EQ(view().windowTitle(), u"Brisko"_s) << "typing leaves the page open";

    press(u"Назад к приложениям"_s);
    EXPECT_EQ(view().windowTitle(), u"Обзор"_s);
    QTest::keyClick(button(u"Обзор"_s), Qt::Key_Escape);
    QTest::keyClick(button(u"Обзор"_s), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(search->text(), u"x"_s);
    search->setFocus();
    QTest::keyClick(search, Qt::Key_Escape);
    settle();
    EXPECT_EQ(search->text(), QString());
    EXPECT_NE(button(u"Подробнее о Kadrilo"_s), nullptr);

    QTest::keyClicks(search, u"brisko"_s);
    press(u"Обзор"_s);
    EXPECT_EQ(search->text(), QString()) << "choosing the section again empties the search";
}

TEST_F(StoreViewTest, EveryWayBackLeavesAnEntrysPage)
{
    Catalog apps = many(100);
    apps[1].category = apps[3].category = u"Медиа"_s;
    open(apps).setFocus();
    EXPECT_EQ(QApplication::focusWidget(), shown<PageScroll>()) << "keys scroll it from the start";
    scrollBar().setValue(3000);
    settle();
    const std::vector<std::function<void(QWidget*)>> ways = {
        [](QWidget* widget) { QTest::keyClick(widget, Qt::Key_Escape); },
        [](QWidget* widget) { QTest::keyClick(widget, Qt::Key_Left, Qt::AltModifier); },
        [](QWidget* widget) { QTest::mouseClick(widget, Qt::BackButton); },
        [this](QWidget*) { QTest::mouseClick(shown<QLineEdit>(), Qt::BackButton); },
        [this](QWidget*) { QTest::mouseClick(shown<SelectableText>()->viewport(), Qt::BackButton); },
        [this](QWidget*) { pressAccessibly(u"Назад к приложениям"_s); },
    };
    QAbstractButton* const opener = button(u"Подробнее о Brisko 26"_s);
    bool isByKeyboard = false;
    for (const auto& goBack : ways) {
        isByKeyboard = !isByKeyboard;
        shown<QLineEdit>()->setFocus();
        opener->setFocus(isByKeyboard ? Qt::TabFocusReason : Qt::MouseFocusReason);
        pressAccessibly(opener->accessibleName());
        EXPECT_EQ(offset(), 0);
        EXPECT_EQ(QApplication::focusWidget(), button(u"Назад к приложениям"_s));
        EXPECT_EQ(static_cast<PlainButton*>(QApplication::focusWidget())->showsFocus(), isByKeyboard);

        goBack(QApplication::focusWidget());
        settle();

        EXPECT_EQ(view().windowTitle(), u"Обзор"_s);
        EXPECT_EQ(QApplication::focusWidget(), opener);
        EXPECT_EQ(offset(), 3000);
    }
    QTest::keyClicks(shown<QLineEdit>(), u"B"_s);
    settle();
    EXPECT_EQ(offset(), 0) << "another search starts at the top";
    scrollBar().setValue(1000);
    press(u"Все приложения"_s);
    EXPECT_EQ(offset(), 0) << "and so does another section";
    press(u"Медиа"_s);
    press(u"Все приложения"_s);
    expectRowsAreReadFromTopToBottom();
}

TEST_F(StoreViewTest, AChangeOfTheStoreMovesNothingOnACatalogPage)
{
    open(many(100));
    QLineEdit* const search = shown<QLineEdit>();
    QTest::keyClicks(search, u"brisko"_s);
    search->setSelection(1, 3);
    scrollBar().setValue(500);
    settle();
    QAbstractButton* const pressed = button(u"Скачать Brisko 7 в ZIP"_s);
    pressed->setFocus();
    QTest::mousePress(pressed, Qt::LeftButton);
    settle();
    const PaintCounter paints;

    changeEverything();

    EXPECT_EQ(paints.count, 0);
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
    scrollBar().setValue(120);

    changeEverything();

    EXPECT_EQ(offset(), 120);
    EXPECT_EQ(QApplication::focusWidget(), description);
    EXPECT_EQ(description->textCursor().selectedText(), brisko.description);
}

TEST_F(StoreViewTest, ARefreshShowsWhatWasInstalledAndRemovedElsewhere)
{
    open({brisko, kadrilo});
    platform.bundles.installed["/Applications/Brisko.app"] = brisko.bundleID;

    press(u"Обновить список установленных приложений"_s);
    press(u"Открыть"_s);

    EXPECT_THAT(platform.workspace.opened, ElementsAre("/Applications/Brisko.app"));

    press(u"Установленные"_s);
    for (const bool isUnderMessage : {false, true}) {
        platform.bundles.installed["/Applications/Brisko.app"] = brisko.bundleID;
        platform.bundles.installed["/Applications/Kadrilo.app"] = kadrilo.bundleID;
        press(u"Обновить список установленных приложений"_s);
        for (const QString& name : {u"Kadrilo"_s, u"Brisko"_s}) {
            button(u"Скачать %1 в ZIP"_s.arg(name))->setFocus();
            if (isUnderMessage)
                store().message.set(u"Готово"_s);
            settle();
            platform.bundles.installed.erase(toPath(u"/Applications/%1.app"_s.arg(name)));
            view().answer(request::Refresh());
            settle();
            if (isUnderMessage)
                press(u"Понятно"_s);
            EXPECT_EQ(QApplication::focusWidget(), shown<PageScroll>()) << name.toStdString();
        }
    }
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
    store().message.set(u"Первое"_s);
    for (const QString& text : {u"Второе"_s, u"Третье"_s}) {
        store().message.set(text);
        settle();
        EXPECT_EQ(shown<MessageSheet>()->accessibleDescription(), text);

        press(u"Понятно"_s);

        EXPECT_EQ(*store().message, std::nullopt);
        EXPECT_EQ(shown<MessageSheet>(), nullptr);
    }
}

TEST_F(StoreViewTest, WhatLiesUnderAMessageOrThePanelAnswersNothing)
{
    open({brisko, kadrilo});
    int panels = 0;
    platform.savePanel.whileOpen = [&] {
        if (++panels == 1) {
            pressAccessibly(u"Скачать Brisko в ZIP"_s);
            pressAccessibly(u"Медиа"_s);
            shown<QLineEdit>()->setText(u"x"_s);
            settle();
        }
    };

    pressAccessibly(u"Скачать Brisko в ZIP"_s);

    EXPECT_EQ(panels, 1);
    EXPECT_EQ(platform.jobs.background.size(), 1U);
    platform.jobs.runAll();
    settle();
    ASSERT_NE(shown<MessageSheet>(), nullptr);
    view().answer(request::ChooseSection{u"Медиа"_s});
    view().answer(request::Save{kadrilo});
    settle();
    EXPECT_EQ(panels, 1);
    EXPECT_EQ(view().windowTitle(), u"Обзор"_s);
    EXPECT_EQ(shown<QLineEdit>()->text(), QString()) << "what was typed is taken back";
}

TEST_F(StoreViewTest, AMessageFromTheLoadingOfTheCatalogIsShownWithTheWindow)
{
    platform.files.readErrors[platform.resource("catalog.json")] = EACCES;

    open({});

    EXPECT_NE(shown<MessageSheet>(), nullptr);
}

TEST_F(StoreViewTest, ADoubleClickOpensAPageAndPressesNothingOnIt)
{
    open(many(4));
    int opened = 0;
    for (const QString& opener : {u"Подробнее о Brisko 0"_s, u"Подробнее о Brisko 1"_s}) {
        const QAbstractButton* const target = button(opener);
        // Where a button of the page will lie.
        for (int x = 0; x < 300; x += 20) {
            const QPoint place = target->mapTo(&view(), target->rect().center()) + QPoint(x, 0);
            QTest::mouseDClick(view().windowHandle(), Qt::LeftButton, {}, place);
            settle();
            EXPECT_TRUE(platform.savePanel.shown.empty());
            opened += view().windowTitle() == u"Обзор"_s ? 0 : 1;
            view().answer(request::GoBack());
            settle();
        }
    }
    EXPECT_GT(opened, 20);
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
        visited.append(name.section(u". "_s, 0, 0).section(u", "_s, 0, 0));
    }
    EXPECT_EQ(visited,
        (QStringList{u"Поиск приложений"_s, u"Обзор"_s, u"Все приложения"_s, u"Утилиты"_s, u"Медиа"_s,
            u"Продуктивность"_s, u"Установленные"_s, u"Загрузки"_s,
            u"Обновить список установленных приложений"_s, u"Меньше лишнего"_s, u"Подробнее о Brisko"_s,
            u"Brisko"_s, u"Загрузить"_s, u"Скачать Brisko в ZIP"_s}));

    QAbstractButton* const first = button(u"Обзор"_s);
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Up);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), button(u"Все приложения"_s));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(view().windowTitle(), u"Все приложения"_s);
}

TEST_F(StoreViewTest, OnlyRowsNearTheViewExistAndTheTabKeyReachesThemAll)
{
    open(many(20'000));
    scrollBar().setValue(scrollBar().maximum());
    settle();
    EXPECT_NE(button(u"Скачать Brisko 19999 в ZIP"_s), nullptr);
    EXPECT_LT(view().findChildren<AppRow*>().size(), 40);

    scrollBar().setValue(0);
    settle();
    QAbstractButton* const focused = button(u"Скачать Brisko 0 в ZIP"_s);
    focused->setFocus();
    for (int place = 0; place < 10'000; place += 700)
        scrollBar().setValue(place);
    settle();
    EXPECT_EQ(QApplication::focusWidget(), focused);
    EXPECT_EQ(focused->accessibleName(), u"Скачать Brisko 0 в ZIP"_s)
        << "the row keeps its entry out of view";
    expectRowsAreReadFromTopToBottom();

    scrollBar().setValue(0);
    settle();
    for (int number = 1; number < 20; ++number) {
        for (int stop = 0; stop < 4; ++stop)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        settle();
        ASSERT_EQ(QApplication::focusWidget()->accessibleName(), u"Скачать Brisko %1 в ZIP"_s.arg(number));
        ASSERT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty()) << "scrolled into view";
    }
}

TEST_F(StoreViewTest, RowsStandOneSpacingApartWhereTheirDividerIsLeftOut)
{
    Catalog apps = many(4);
    apps[1].id = apps[2].id = apps[3].id;
    open(apps);
    const auto top = [this](int number) {
        const QAbstractButton* const row = button(u"Скачать Brisko %1 в ZIP"_s.arg(number));
        return row->mapTo(&view(), QPoint()).y();
    };

    EXPECT_EQ(top(2) - top(1), top(1) - top(0) - 22 - 1);
    EXPECT_EQ(top(3) - top(2), top(2) - top(1));
}

} // namespace
