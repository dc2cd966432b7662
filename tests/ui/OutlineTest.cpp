#include "ui/AccessibleOutline.h"
#include "ui/UiTest.h"

#include <QFile>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using OutlineTest = UiTest;

/// The outline of each page and state lies in outlines/; with PLOVI_WRITE_OUTLINES set it is written there
/// instead.
TEST_F(OutlineTest, AssistiveTechnologyMeetsEveryPageInReadingOrder)
{
    const std::map<QString, std::function<void()>> pages = {
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
        {u"message"_s, [this] { store().message.set(u"Готово."_s); }},
    };
    StoreApp noIcon = kadrilo;
    noIcon.name = u"Zvon"_s;
    for (const auto& [name, goThere] : pages) {
        SCOPED_TRACE(name.toStdString());
        open({brisko, noIcon});
        goThere();
        settle();
        const QByteArray outline = accessibleOutline(view()).toUtf8();
        QFile file(QStringLiteral(OUTLINES "/%1.outline").arg(name));
        if (qEnvironmentVariableIsSet("PLOVI_WRITE_OUTLINES")) {
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(outline);
            continue;
        }

        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(outline.toStdString(), file.readAll().toStdString());
    }
}

} // namespace
