#include "ui/UiTest.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

QByteArray UiTest::png(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter(&image).fillRect(0, 0, width / 2, height / 2, Qt::white);
    QByteArray file;
    QBuffer buffer(&file);
    image.save(&buffer, "PNG");
    return file;
}

UiTest::UiTest()
{
    for (const char* name : {"Brisko.icns", "Kadrilo.icns", "Brand.png"})
        platform.files.content[platform.resource(name)] = png(64, 64);
    platform.files.content[platform.resource("BriskoScreen.png")] = png(136, 85);
    platform.files.content[brisko.packageURL()] = "archive of Brisko";
    platform.savePanel.answer = "/home/user/Downloads/Brisko-2.4.zip";
}

StoreView& UiTest::open(const Catalog& apps)
{
    platform.files.content[platform.resource("catalog.json")] = sample::catalogFile(apps);
    m_view.reset();
    m_store = std::make_unique<Store>();
    m_view = std::make_unique<StoreView>(*m_store);
    m_view->resize(1180, 800);
    m_view->show();
    m_view->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(m_view.get()));
    m_view->setFocus();
    settle();
    return *m_view;
}

void UiTest::settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

QAbstractButton* UiTest::button(const QString& name, int index) const
{
    QList<QAbstractButton*> found;
    for (QAbstractButton* candidate : m_view->window()->findChildren<QAbstractButton*>()) {
        const QString own =
            candidate->accessibleName().isEmpty() ? candidate->text() : candidate->accessibleName();
        if (candidate->isVisible() && own == name)
            found.append(candidate);
    }
    std::ranges::sort(found, {}, [](QWidget* widget) { return widget->mapToGlobal(QPoint()).y(); });
    if (index >= found.size())
        throw std::out_of_range("no button " + name.toStdString());
    return found[index];
}

void UiTest::press(const QString& name, int index)
{
    QTest::mouseClick(button(name, index), Qt::LeftButton);
    settle();
}

Catalog UiTest::many(int count)
{
    const QByteArray icon = png(64, 64);
    Catalog apps;
    for (int number = 0; number < count; ++number) {
        StoreApp app = sample::brisko();
        app.id = u"app%1"_s.arg(number);
        app.name = u"Brisko %1"_s.arg(number);
        platform.files.content[platform.resource(toPath(app.name + u".icns"_s))] = icon;
        apps.push_back(app);
    }
    return apps;
}
