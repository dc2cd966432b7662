#include "ui/kit/PageScroll.h"
#include "ui/kit/Divider.h"
#include "ui/kit/ProminentButton.h"
#include "ui/kit/SearchField.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/Style.h"

#include <QBoxLayout>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A field beside a page that is three screens high, a button at each end.
class PageScrollTest : public testing::Test {
protected:
    PageScrollTest()
    {
        auto* wide = new Divider;
        wide->setMinimumWidth(5000);
        m_scroll->setPage(vstack({}, {m_first, wide, Gap{1500}, m_last}));
        m_window.setLayout(vstack({}, {m_field, stretched(m_scroll)}));
        m_window.resize(700, 500);
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }

    int offset() const { return m_scroll->verticalScrollBar()->value(); }
    int end() const { return m_scroll->verticalScrollBar()->maximum(); }

    QWidget m_window;
    SearchField* m_field = new SearchField(u"Поиск"_s);
    PageScroll* m_scroll = new PageScroll;
    ProminentButton* m_first = new ProminentButton(u"Первая"_s);
    ProminentButton* m_last = new ProminentButton(u"Последняя"_s);
};

} // namespace

TEST_F(PageScrollTest, KeysScrollWhileTheFocusIsInside)
{
    m_first->setFocus();

    QTest::keyClick(m_first, Qt::Key_PageDown);
    EXPECT_GT(offset(), 300);
    QTest::keyClick(m_first, Qt::Key_End);
    EXPECT_EQ(offset(), end());
    QTest::keyClick(m_first, Qt::Key_Home);
    EXPECT_EQ(offset(), 0);
}

TEST_F(PageScrollTest, TheFocusIsBroughtIntoViewWhereverItComesFrom)
{
    m_field->setFocus();
    QTest::keyClick(m_field, Qt::Key_Backtab);
    EXPECT_TRUE(m_last->hasFocus());
    EXPECT_EQ(offset(), end());

    QTest::keyClick(m_last, Qt::Key_Backtab);
    EXPECT_TRUE(m_first->hasFocus());
    EXPECT_LE(offset(), Style::pageMargin);
}
