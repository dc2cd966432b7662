#include "ui/kit/MessageSheet.h"
#include "ui/kit/ProminentButton.h"
#include "ui/kit/SelectableText.h"

#include <QAccessible>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A sheet over a window with one button.
class MessageSheetTest : public testing::Test {
protected:
    MessageSheetTest() : below(u"Загрузить"_s, &window), sheet(&window)
    {
        window.resize(900, 620);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        below.setFocus(Qt::MouseFocusReason);
    }

    void present(const QString& text) { sheet.present(u"PloviStore"_s, text, u"Понятно"_s); }
    ProminentButton* button() { return sheet.findChild<ProminentButton*>(); }
    SelectableText* text() { return sheet.findChild<SelectableText*>(); }
    QRect placeOf(QWidget* widget) { return {widget->mapTo(&sheet, QPoint()), widget->size()}; }

    QWidget window;
    ProminentButton below;
    MessageSheet sheet;
};

TEST_F(MessageSheetTest, IsDismissedByEachOfItsKeysAndByItsButtonAndGivesTheFocusBack)
{
    const QSignalSpy dismissed(&sheet, &MessageSheet::dismissed);
    int times = 0;
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_unknown}) {
        present(u"Готово."_s);
        EXPECT_TRUE(button()->hasFocus());
        if (key == Qt::Key_unknown)
            QTest::mouseClick(button(), Qt::LeftButton);
        else
            QTest::keyClick(button(), key);
        EXPECT_FALSE(sheet.isVisible());
        EXPECT_EQ(dismissed.count(), ++times);
        EXPECT_TRUE(below.hasFocus());
    }
    sheet.dismiss();
    EXPECT_EQ(dismissed.count(), times);
}

TEST_F(MessageSheetTest, ShowsTheRingWhereTheKeyboardAskedOrWasInUse)
{
    present(u"Готово."_s);
    EXPECT_FALSE(button()->showsFocus());
    sheet.dismiss();
    sheet.present(u"PloviStore"_s, u"Готово."_s, u"Понятно"_s, true);
    EXPECT_TRUE(button()->showsFocus());
    sheet.dismiss();
    below.clearFocus();
    below.setFocus(Qt::TabFocusReason);
    present(u"Готово."_s);
    EXPECT_TRUE(button()->showsFocus());
}

TEST_F(MessageSheetTest, KeepsTheKeyboardTheMouseAndScreenReadersInside)
{
    const QShortcut search(QKeySequence(u"Ctrl+F"_s), &window);
    const QShortcut quit(QKeySequence(u"Ctrl+Q"_s), &window);
    const QSignalSpy searched(&search, &QShortcut::activated);
    const QSignalSpy left(&quit, &QShortcut::activated);
    const QSignalSpy pressed(&below, &QAbstractButton::clicked);
    present(u"Готово."_s);

    for (QWidget* const expected : std::initializer_list<QWidget*>{text(), button(), text()}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), expected);
    }
    QTest::keyClick(text(), Qt::Key_F, Qt::ControlModifier);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, below.geometry().center());
    QAccessible::queryAccessibleInterface(&below)->actionInterface()->doAction(u"Press"_s);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(searched.count(), 0);
    EXPECT_EQ(pressed.count(), 0);
    QTest::keyClick(text(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(left.count(), 1) << "the program can be left";
}

TEST_F(MessageSheetTest, FitsTheWindowWhateverItsTextAndSize)
{
    for (const QSize& size : {QSize(900, 620), QSize(1200, 700), QSize(300, 260)}) {
        for (const int sentences : {1, 500}) {
            SCOPED_TRACE(testing::Message() << size.width() << ' ' << sentences);
            window.resize(size);
            present(u"Очень длинный текст. "_s.repeated(sentences));
            EXPECT_EQ(sheet.geometry(), window.rect());
            const QRect panel = button()->parentWidget()->geometry();
            EXPECT_EQ(panel.width(), qMin(420, size.width() - 2 * 22));
            EXPECT_NEAR(panel.center().x(), sheet.rect().center().x(), 1);
            EXPECT_NEAR(panel.center().y(), sheet.rect().center().y(), 1);
            EXPECT_TRUE(sheet.rect().contains(placeOf(button())));
            EXPECT_NEAR(
                panel.bottom() - placeOf(button()).marginsRemoved(button()->contentsMargins()).bottom(), 22,
                1);
            const bool isCut = text()->height() < text()->heightForWidth(text()->width());
            EXPECT_EQ(isCut, sentences > 1);
            EXPECT_EQ(text()->verticalScrollBar()->isVisible(), isCut);
        }
    }
}

TEST_F(MessageSheetTest, TheUpperOfTwoCoversTheLowerAndNothingElse)
{
    present(u"Готово."_s);
    MessageSheet upper(&window);
    EXPECT_TRUE(MessageSheet::covers(below));
    EXPECT_FALSE(MessageSheet::covers(*button()));
    upper.present(u"PloviStore"_s, u"Сохранено."_s, u"Понятно"_s);
    EXPECT_TRUE(MessageSheet::covers(*button()));
    EXPECT_FALSE(MessageSheet::covers(*upper.findChild<ProminentButton*>()));
    upper.dismiss();
    EXPECT_FALSE(MessageSheet::covers(*button()));
    sheet.dismiss();
    EXPECT_FALSE(MessageSheet::covers(below));
}

} // namespace
