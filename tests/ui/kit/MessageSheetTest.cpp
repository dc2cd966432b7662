#include "ui/kit/MessageSheet.h"
#include "ui/kit/ProminentButton.h"
#include "ui/kit/SelectableText.h"

#include <QAccessible>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(MessageSheet, KeepsFocusKeysAndAssistiveTechnologyInsideAndFitsTheWindow)
{
    QWidget window;
    window.resize(900, 620);
    ProminentButton below(u"Загрузить"_s, &window);
    MessageSheet sheet(&window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    below.setFocus();
    const QShortcut search(QKeySequence(u"Ctrl+F"_s), &window);
    const QShortcut quit(QKeySequence(u"Ctrl+Q"_s), &window);
    const QSignalSpy searched(&search, &QShortcut::activated);
    const QSignalSpy left(&quit, &QShortcut::activated);
    const QSignalSpy pressed(&below, &QAbstractButton::clicked);
    auto* const button = sheet.findChild<ProminentButton*>();
    auto* const text = sheet.findChild<SelectableText*>();
    sheet.present(u"PloviStore"_s, u"Очень длинный текст. "_s.repeated(500), u"Понятно"_s);

    for (QWidget* expected : std::initializer_list<QWidget*>{text, button, text}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), expected);
    }
    QTest::keyClick(text, Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(text, Qt::Key_Q, Qt::ControlModifier);
    QAccessible::queryAccessibleInterface(&below)->actionInterface()->doAction(u"Press"_s);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(searched.count(), 0);
    EXPECT_EQ(left.count(), 1);
    EXPECT_EQ(pressed.count(), 0);

    window.resize(1200, 700);
    EXPECT_EQ(sheet.geometry(), window.rect());
    EXPECT_TRUE(sheet.rect().contains(QRect(button->mapTo(&sheet, QPoint()), button->size())));
    sheet.present(u"PloviStore"_s, u"Коротко."_s, u"Понятно"_s);
    EXPECT_EQ(text->height(), text->heightForWidth(text->width()));

    MessageSheet upper(&window);
    upper.present(u"PloviStore"_s, u"Сохранено."_s, u"Понятно"_s);
    const auto answers = [](QWidget* widget) {
        return !QAccessible::queryAccessibleInterface(widget)->actionInterface()->actionNames().isEmpty();
    };
    EXPECT_TRUE(answers(upper.findChild<ProminentButton*>()));
    EXPECT_FALSE(answers(button));
    upper.dismiss();
    EXPECT_TRUE(answers(button));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(below.hasFocus());
}
