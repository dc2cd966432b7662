#include "ui/kit/Divider.h"
#include "ui/kit/MessageSheet.h"
#include "ui/kit/ProminentButton.h"
#include "ui/kit/SearchField.h"
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
        u"arrow.down.circle"_s, Style::spinner, Style::white(), parent);
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
