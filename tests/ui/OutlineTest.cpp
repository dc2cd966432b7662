#include "ui/AccessibleOutline.h"
#include "ui/UiTest.h"

#include <QFile>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class OutlineTest : public UiTest {
protected:
    OutlineTest() { QLocale::setDefault(QLocale(QLocale::Russian)); }

    /// Holds the window's outline against the file of that name, or makes it that file when PLOVI_WRITE_OUTLINES is set.
    void expectOutline(const QString& name)
    {
        QFile file(QStringLiteral(OUTLINES "/%1.outline").arg(name));
        if (qEnvironmentVariableIsSet("PLOVI_WRITE_OUTLINES")) {
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(accessibleOutline(view()).toUtf8());
            return;
        }
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
        EXPECT_EQ(accessibleOutline(view()).toStdString(), file.readAll().toStdString());
    }
};

TEST_F(OutlineTest, OfTheOverview)
{
    StoreApp noIcon = sample::kadrilo();
    noIcon.name = u"Zvon"_s;
    open({brisko, noIcon});

    expectOutline(u"overview"_s);
}

TEST_F(OutlineTest, OfASectionWhileAnArchiveIsSaved)
{
    open({brisko, kadrilo});
    press(u"Утилиты"_s);
    platform.bundles.installed["/Applications/Brisko.app"] = brisko.bundleID;

    press(u"Скачать Brisko в ZIP"_s);

    expectOutline(u"section"_s);
}

TEST_F(OutlineTest, OfASearchThatFindsNothing)
{
    open({brisko});

    QTest::keyClicks(shown<QLineEdit>(), u"xyz"_s);
    settle();

    expectOutline(u"search"_s);
}

TEST_F(OutlineTest, OfDownloadsBeforeAnythingIsSaved)
{
    open({brisko});

    press(u"Загрузки"_s);

    expectOutline(u"downloads"_s);
}

TEST_F(OutlineTest, OfAnEntry)
{
    open({brisko});

    press(u"Подробнее о Brisko"_s);

    expectOutline(u"detail"_s);
}

TEST_F(OutlineTest, OfAMessage)
{
    open({brisko});

    store().message.set(u"Готово."_s);
    settle();

    expectOutline(u"message"_s);
}

}
