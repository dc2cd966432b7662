#include "ui/kit/MessageSheet.h"
#include "ui/kit/ProminentButton.h"
#include "ui/kit/SelectableText.h"

#include <QAccessible>
#include <QLineEdit>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class MessageSheetTest : public testing::Test {
protected:
    MessageSheetTest()
    {
        m_window.resize(900, 620);
        m_window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_field.setFocus();
    }

    void present(const QString& text) { m_sheet.present(u"PloviStore"_s, text, u"Понятно"_s); }
    ProminentButton* button() const { return m_sheet.findChild<ProminentButton*>(); }
    SelectableText* text() const { return m_sheet.findChild<SelectableText*>(); }

    QWidget m_window;
    QLineEdit m_field{&m_window};
    ProminentButton m_below{u"Загрузить"_s, &m_window};
    MessageSheet m_sheet{&m_window};
};

} // namespace

TEST_F(MessageSheetTest, TheFocusAndTheKeysStayInside)
{
    const QShortcut search(QKeySequence(u"Ctrl+F"_s), &m_window);
    const QShortcut quit(QKeySequence(u"Ctrl+Q"_s), &m_window);
    const QSignalSpy searched(&search, &QShortcut::activated);
    const QSignalSpy left(&quit, &QShortcut::activated);
    present(u"Brisko сохранён."_s);

    for (QWidget* expected : std::initializer_list<QWidget*>{text(), button(), text()}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), expected);
    }
    QTest::keyClick(text(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(text(), Qt::Key_Q, Qt::ControlModifier);
    QTest::keyClicks(text(), u"abc"_s);

    EXPECT_EQ(searched.count(), 0);
    EXPECT_EQ(left.count(), 1);
    EXPECT_TRUE(m_field.text().isEmpty());
    QTest::keyClick(text(), Qt::Key_Return);
    EXPECT_TRUE(m_field.hasFocus());
}

TEST_F(MessageSheetTest, LetsNothingBelowAnswerToAssistiveTechnology)
{
    present(u"Готово."_s);
    const QSignalSpy pressed(&m_below, &QAbstractButton::clicked);
    const auto press = [](QWidget* control) {
        QAccessible::queryAccessibleInterface(control)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QCoreApplication::sendPostedEvents();
    };
    press(&m_below);
    EXPECT_EQ(pressed.count(), 0);
    press(button());
    EXPECT_TRUE(m_sheet.isHidden());
    press(&m_below);
    EXPECT_EQ(pressed.count(), 1);
}

TEST_F(MessageSheetTest, CoversTheWindowAndFitsALongTextIntoIt)
{
    present(u"Очень длинный текст. "_s.repeated(500));
    EXPECT_TRUE(m_sheet.rect().contains(button()->rect().translated(button()->mapTo(&m_sheet, QPoint()))));
    EXPECT_GT(text()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);

    m_window.resize(1200, 700);
    EXPECT_EQ(m_sheet.geometry(), m_window.rect());

    present(u"Коротко."_s);
    EXPECT_EQ(text()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    EXPECT_EQ(text()->height(), text()->heightForWidth(text()->width()));
}
