#include "ui/kit/MessageSheet.h"
#include "ui/kit/ProminentButton.h"
#include "ui/kit/SelectableText.h"
#include "ui/kit/Style.h"

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
        m_field.setGeometry(10, 10, 200, 30);
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_field.setFocus();
    }

    void present(const QString& text = u"Brisko сохранён."_s)
    {
        m_sheet.present(u"PloviStore"_s, text, u"Понятно"_s);
    }
    ProminentButton* button() const { return m_sheet.findChild<ProminentButton*>(); }
    SelectableText* text() const { return m_sheet.findChild<SelectableText*>(); }

    QWidget m_window;
    QLineEdit m_field{&m_window};
    MessageSheet m_sheet{&m_window};
    QSignalSpy m_dismissed{&m_sheet, &MessageSheet::dismissed};
};

} // namespace

TEST_F(MessageSheetTest, EveryWayOutDismissesOnceAndGivesTheFocusBack)
{
    const std::initializer_list<std::pair<const char*, std::function<void()>>> ways{
        {"Escape", [this] { QTest::keyClick(button(), Qt::Key_Escape); }},
        {"Return", [this] { QTest::keyClick(button(), Qt::Key_Return); }},
        {"Return in the text", [this] { QTest::keyClick(text(), Qt::Key_Return); }},
        {"click", [this] { QTest::mouseClick(button(), Qt::LeftButton); }},
        {"close", [this] { m_sheet.close(); }},
    };
    for (const auto& [name, leave] : ways) {
        SCOPED_TRACE(name);
        m_dismissed.clear();
        present();
        EXPECT_TRUE(button()->hasFocus());

        leave();

        EXPECT_TRUE(m_sheet.isHidden());
        EXPECT_EQ(m_dismissed.count(), 1);
        EXPECT_TRUE(m_field.hasFocus());
    }
}

TEST_F(MessageSheetTest, TheFocusAndTheKeysStayInside)
{
    const QShortcut search(QKeySequence(u"Ctrl+F"_s), &m_window);
    const QShortcut quit(QKeySequence(u"Ctrl+Q"_s), &m_window);
    const QSignalSpy searched(&search, &QShortcut::activated);
    const QSignalSpy left(&quit, &QShortcut::activated);
    present();

    for (QWidget* expected : std::initializer_list<QWidget*>{text(), button(), text()}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), expected);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Q, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), u"abc"_s);

    EXPECT_EQ(searched.count(), 0);
    EXPECT_EQ(left.count(), 1);
    EXPECT_TRUE(m_field.text().isEmpty());
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
    EXPECT_EQ(text()->width(), Style::px(420 - 2 * 22));
    EXPECT_EQ(text()->height(), text()->heightForWidth(text()->width()));
}
