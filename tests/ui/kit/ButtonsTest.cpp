#include "ui/kit/Divider.h"
#include "ui/kit/LabelButton.h"
#include "ui/kit/MessageSheet.h"
#include "ui/kit/ProminentButton.h"
#include "ui/kit/SearchField.h"
#include "ui/kit/Spinner.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolButton.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<SymbolButton> downloadButton(QWidget* parent = nullptr)
{
    return std::make_unique<SymbolButton>(
        u"arrow.down.circle"_s, Style::actionSymbol, Style::white(), parent);
}

} // namespace

TEST(PlainButton, IsPressedBySpaceReturnAndEnterAndLeavesArrowsToThePage)
{
    for (const auto& [key, clicks] : {std::pair{Qt::Key_Space, 1}, {Qt::Key_Return, 1}, {Qt::Key_Enter, 1},
             {Qt::Key_Down, 0}, {Qt::Key_Left, 0}}) {
        SCOPED_TRACE(key);
        QWidget window;
        ProminentButton button(u"Открыть"_s, &window);
        const ProminentButton other(u"Другая"_s, &window);
        window.show();
        button.setFocus();
        const QSignalSpy clicked(&button, &QAbstractButton::clicked);

        QTest::keyClick(&button, key);

        EXPECT_EQ(clicked.count(), clicks);
        EXPECT_EQ(window.focusWidget(), &button);
    }
}

TEST(PlainButton, ShowsItsFocusOnlyToTheKeyboard)
{
    QWidget window;
    ProminentButton button(u"Открыть"_s, &window);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));

    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(button.hasFocus());
    EXPECT_FALSE(button.showsFocus());

    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_TRUE(button.showsFocus());
}

TEST(Stacks, AHaloMovesNothing)
{
    QWidget window;
    auto* label = new TextLabel({}, u"Назад"_s);
    auto* plain = new LabelButton({}, u"Назад"_s);
    auto* prominent = new ProminentButton(u"Открыть"_s);
    window.setLayout(vstack({.spacing = 10, .margins = {24, 24, 24, 24}}, {label, plain, prominent}));
    window.resize(window.sizeHint());
    window.layout()->activate();

    EXPECT_EQ(plain->geometry().marginsRemoved(plain->contentsMargins()),
        label->geometry().translated(0, label->height() + 10));
    EXPECT_EQ(prominent->contentsRect().height(), Style::px(30));
    EXPECT_EQ(prominent->contentsRect().width(),
        prominent->fontMetrics().horizontalAdvance(u"Открыть"_s) + 2 * Style::px(16));
    EXPECT_EQ(window.height(), 48 + 2 * (label->height() + 10) + Style::px(30));
}

TEST(Stacks, ChildrenStandAtTheLeadingEdgeAndContainersFill)
{
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QWidget window;
        auto* label = new TextLabel({}, u"Слово"_s);
        auto* container = new QWidget;
        container->setLayout(hstack({}, {new TextLabel({}, u"а"_s), Spacer{}, new TextLabel({}, u"б"_s)}));
        window.setLayoutDirection(direction);
        window.setLayout(vstack({}, {label, new Divider, container}));
        window.resize(400, 200);
        window.layout()->activate();

        EXPECT_EQ(direction == Qt::LeftToRight ? label->x() : 400 - label->geometry().right() - 1, 0);
        EXPECT_EQ(container->width(), 400);
    }
}

TEST(SymbolButton, WhileBusyItIsDisabledAndItsFocusComesBackAfterwards)
{
    QWidget window;
    const auto button = downloadButton(&window);
    SearchField field(u"Поиск"_s, &window);
    window.show();
    button->setFocus();

    button->present(SymbolButton::Activity::Busy);
    EXPECT_FALSE(button->isEnabled());
    EXPECT_EQ(window.focusWidget(), &field);
    button->present(SymbolButton::Activity::Ready);
    EXPECT_TRUE(button->isEnabled());
    EXPECT_EQ(window.focusWidget(), button.get());
}

TEST(Spinner, TurnsOnlyWhileItIsShown)
{
    QWidget window;
    const auto button = downloadButton(&window);
    button->present(SymbolButton::Activity::Busy);
    const auto* spinner = button->findChild<Spinner*>();
    ASSERT_TRUE(spinner);
    EXPECT_FALSE(spinner->isTurning());

    window.show();
    EXPECT_TRUE(spinner->isTurning());
    window.hide();
    EXPECT_FALSE(spinner->isTurning());
    window.show();
    button->present(SymbolButton::Activity::Ready);
    EXPECT_FALSE(spinner->isTurning());
}

TEST(Accessibility, EveryWidgetSaysWhatItIs)
{
    QWidget window;
    PlainButton row(&window);
    row.setContent(vstack({}, {new TextLabel({}, u"Brisko"_s), new TextLabel({}, u"Утилиты"_s)}));
    row.setAccessibleName(u"Brisko, Утилиты"_s);
    const auto download = downloadButton(&window);
    download->setAccessibleName(u"Скачать Brisko в ZIP"_s);
    TextLabel label({}, u"<b>A&B</b>"_s, &window);
    ProminentButton prominent(u"A&B"_s, &window);
    SearchField field(u"Поиск приложений"_s, &window);
    MessageSheet sheet(&window);
    sheet.present(u"PloviStore"_s, u"Brisko сохранён."_s, u"Понятно"_s);
    struct Row {
        QWidget* widget;
        QAccessible::Role role;
        QString name;
        int children = 0;
    };
    for (const Row& each : {Row{&row, QAccessible::Button, u"Brisko, Утилиты"_s},
             Row{download.get(), QAccessible::Button, u"Скачать Brisko в ZIP"_s},
             Row{&label, QAccessible::StaticText, u"<b>A&B</b>"_s},
             Row{&prominent, QAccessible::Button, u"A&B"_s},
             Row{&field, QAccessible::EditableText, u"Поиск приложений"_s},
             Row{&sheet, QAccessible::Dialog, u"PloviStore"_s, 1}}) {
        SCOPED_TRACE(each.name.toStdString());
        auto* node = QAccessible::queryAccessibleInterface(each.widget);
        ASSERT_TRUE(node);

        EXPECT_EQ(node->role(), each.role);
        EXPECT_EQ(node->text(QAccessible::Name), each.name);
        EXPECT_EQ(node->childCount(), each.children);
    }
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&sheet)->state().modal);
    EXPECT_EQ(
        QAccessible::queryAccessibleInterface(&sheet)->text(QAccessible::Description), u"Brisko сохранён."_s);

    download->present(SymbolButton::Activity::Busy);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(download.get())->state().busy);
    const QSignalSpy clicked(&row, &QAbstractButton::clicked);
    QAccessible::queryAccessibleInterface(&row)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicked.count(), 1);
}

TEST(Accessibility, WhatIsThereForTheEyeIsInvisibleToOthers)
{
    Divider divider;
    Spinner spinner;
    TextLabel symbol({.symbol = u"shippingbox"_s});
    for (QWidget* widget : std::initializer_list<QWidget*>{&divider, &spinner, &symbol}) {
        SCOPED_TRACE(widget->metaObject()->className());
        EXPECT_TRUE(QAccessible::queryAccessibleInterface(widget)->state().invisible);
    }
}
