#include "ui/AccessibleOutline.h"
#include "ui/Pictures.h"
#include "ui/UiTest.h"

#include "ui/kit/MessageSheet.h"
#include "ui/kit/PageScroll.h"

#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Averages of blocks, so that a font of another version does not matter.
constexpr Tolerance anyFont{.block = 10, .distance = 45, .pixels = 12};

using ScreensTest = UiTest;

/// What every page shows, says and looks like in each state. Read both line by line before they are accepted.
TEST_F(ScreensTest, AreWhatTheBaselinesShow)
{
    const std::vector<std::pair<QString, std::function<void()>>> screens = {
        {u"overview"_s, [] {}},
        {u"section"_s,
            [this] {
                platform.bundles.installed["/Applications/Brisko.app"] = brisko.bundleID;
                press(u"Утилиты"_s);
                press(u"Скачать Brisko в ZIP"_s);
            }},
        {u"search"_s, [this] { QTest::keyClicks(shown<QLineEdit>(), u"xyz"_s); }},
        {u"downloads"_s, [this] { press(u"Загрузки"_s); }},
        {u"detail"_s, [this] { press(u"Подробнее о Brisko"_s); }},
        {u"mirrored"_s, [this] { view().setLayoutDirection(Qt::RightToLeft); }},
        {u"message"_s, [this] { store().message.set(u"Готово. <b>A&B</b>\nВторая строка"_s); }},
    };
    for (const auto& [name, goThere] : screens) {
        SCOPED_TRACE(name.toStdString());
        platform.bundles.installed.clear();
        open({brisko, kadrilo});
        goThere();
        settle();

        QWidget* part = shown<PageScroll>();
        if (name == u"overview"_s)
            part = &view();
        if (name == u"message"_s)
            part = shown<MessageSheet>();
        if (name != u"mirrored"_s)
            expectText(name + u".outline"_s, accessibleOutline(*part));
        expectPicture(name, view().grab().toImage(), anyFont);
    }
}

} // namespace
