#include "ui/UiTest.h"

#include "ui/AppIcon.h"
#include "ui/FeaturedCardView.h"
#include "ui/ScreenshotView.h"
#include "ui/Sidebar.h"
#include "ui/kit/Divider.h"
#include "ui/kit/PageScroll.h"
#include "ui/kit/SelectableText.h"
#include "ui/kit/SymbolView.h"
#include "ui/kit/TextLabel.h"

#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// Every text and control that is shown on the page, nothing that only holds others.
QList<QWidget*> leaves(QWidget& page)
{
    QList<QWidget*> found;
    for (QWidget* widget : page.findChildren<QWidget*>()) {
        const bool isText = qobject_cast<TextLabel*>(widget) != nullptr;
        const bool isButton = qobject_cast<QAbstractButton*>(widget) && !widget->findChild<TextLabel*>();
        if (widget->isVisible() && (isText || isButton))
            found.append(widget);
    }
    return found;
}

class LayoutTest : public UiTest {
protected:
    void expectNothingOverlaps()
    {
        auto* const page = shown<PageScroll>();
        const QList<QWidget*> parts = leaves(*page);
        ASSERT_GT(parts.size(), 8);
        EXPECT_LE(page->widget()->width(), page->viewport()->width()) << "no sideways scrolling";
        const auto placeOf = [page](QWidget* part) {
            return QRect(part->mapTo(page->widget(), QPoint()), part->size())
                .marginsRemoved(part->contentsMargins());
        };
        for (qsizetype one = 0; one < parts.size(); ++one) {
            const QRect place = placeOf(parts[one]);
            EXPECT_GE(parts[one]->height(), parts[one]->heightForWidth(parts[one]->width()))
                << parts[one]->accessibleName().toStdString();
            EXPECT_TRUE(page->widget()->layout()->contentsRect().adjusted(-1, 0, 1, 0).contains(place))
                << place.x() << ' ' << place.width();
            for (qsizetype other = one + 1; other < parts.size(); ++other)
                EXPECT_FALSE(place.intersects(placeOf(parts[other])))
                    << parts[one]->accessibleName().toStdString() << place.y() << ' '
                    << placeOf(parts[other]).y();
        }
    }
};

/// Where things lie in the window, without the room in which rings and hover are drawn.
class MeasuresTest : public UiTest {
protected:
    QRect placeOf(const QWidget* widget)
    {
        const QRect inside = widget->contentsRect();
        return {widget->mapTo(&view(), inside.topLeft()), inside.size()};
    }
    /// The first text on the page, or in the sidebar, that begins like this.
    QRect text(const QString& beginning)
    {
        for (const QWidget* part :
            {static_cast<QWidget*>(shown<PageScroll>()), static_cast<QWidget*>(shown<Sidebar>())}) {
            for (const auto* label : part->findChildren<TextLabel*>()) {
                if (label->isVisible() && label->text().startsWith(beginning))
                    return placeOf(label);
            }
        }
        throw std::out_of_range("no text " + beginning.toStdString());
    }
    QRect pressable(const QString& name, int index = 0) { return placeOf(button(name, index)); }
    template <class T>
    QList<QRect> all()
    {
        QList<QRect> places;
        for (const auto* widget : view().findChildren<T*>()) {
            if (widget->isVisible())
                places.append(placeOf(widget));
        }
        std::ranges::sort(places, {}, [](const QRect& place) { return std::pair(place.x(), place.y()); });
        return places;
    }

    static int below(const QRect& upper, const QRect& lower) { return lower.top() - upper.bottom() - 1; }
    static int beside(const QRect& left, const QRect& right) { return right.left() - left.right() - 1; }
};

TEST_F(MeasuresTest, TheSidebarStandsAsPromised)
{
    open({brisko, kadrilo});
    const auto* const sidebar = view().findChild<Sidebar*>();
    const QRect column = placeOf(sidebar);
    EXPECT_EQ(column.width(), 235);
    EXPECT_EQ(sidebar->minimumWidth(), 220);
    EXPECT_EQ(sidebar->maximumWidth(), 265);

    const QRect image = placeOf(view().findChild<QLabel*>());
    EXPECT_EQ(image, QRect(16, 18, 36, 36));
    EXPECT_EQ(beside(image, text(u"PloviStore"_s)), 9);
    const QRect search = placeOf(shown<QLineEdit>());
    EXPECT_EQ(search.left(), 16);
    EXPECT_EQ(column.right() - search.right(), 16);
    EXPECT_EQ(below(image, search), 22);
    EXPECT_EQ(below(search, pressable(u"Обзор"_s)), 22);
    EXPECT_EQ(below(pressable(u"Обзор"_s), pressable(u"Все приложения"_s)), 5);
    EXPECT_EQ(pressable(u"Обзор"_s).height(), 38) << "its text with 10 points above and below";
    EXPECT_EQ(text(u"Продуктивность"_s).left() - pressable(u"Продуктивность"_s).left(), 12 + 18 + 8);

    const QRect line = all<Divider>().front();
    EXPECT_EQ(line.width(), search.width());
    const QRect maker = all<SymbolView>().front();
    EXPECT_EQ(below(line, maker), 22);
    EXPECT_EQ(column.bottom() - maker.bottom(), 18);
    EXPECT_EQ(beside(maker, text(u"Orbanel"_s)), 10);
    EXPECT_EQ(below(text(u"Orbanel"_s), text(u"Личная"_s)), 3);
}

TEST_F(MeasuresTest, ThePagesStandAsPromised)
{
    open({brisko, kadrilo});
    const QRect title = text(u"Создано"_s);
    const QRect page = placeOf(shown<PageScroll>()->widget());
    EXPECT_EQ(title.topLeft() - page.topLeft(), QPoint(24, 24));
    EXPECT_EQ(below(title, text(u"Приложения Orbanel"_s)), 8);
    const QRect card = placeOf(shown<FeaturedCardView>());
    EXPECT_EQ(below(text(u"Приложения Orbanel"_s), card), 22);
    EXPECT_EQ(page.right() - card.right(), 24);
    EXPECT_GE(card.height(), 220);
    EXPECT_EQ(text(u"Меньше"_s).left() - card.left(), 24);
    EXPECT_EQ(below(text(u"Меньше"_s), text(u"Brisko"_s)), 15);
    EXPECT_EQ(below(text(u"Программы"_s), text(u"Посмотреть"_s)), 15 + 4);
    EXPECT_EQ(below(card, text(u"Твоя"_s)), 22);

    const QRect icon = pressable(u"Подробнее о Brisko"_s);
    const QRect words = pressable(appRow(brisko, *store().busy).textAccessibleName);
    EXPECT_EQ(below(text(u"Твоя"_s), words), 22);
    EXPECT_EQ(icon.size(), QSize(64, 64));
    EXPECT_EQ(beside(icon, words), 17);
    const QRect next = pressable(appRow(kadrilo, *store().busy).textAccessibleName);
    EXPECT_EQ(below(words, next), 2 * 22 + 1);
    EXPECT_EQ(below(text(brisko.subtitle), text(brisko.category + u" · "_s)), 5);
    const QRect primary = pressable(u"Загрузить"_s);
    const QRect save = pressable(u"Скачать Brisko в ZIP"_s);
    EXPECT_EQ(beside(words, primary), 17);
    EXPECT_EQ(beside(primary, save), 12);
    EXPECT_EQ(save.right(), card.right());
    EXPECT_EQ(primary.height(), 30);
    const QRect line = all<Divider>().back();
    EXPECT_EQ(below(next, line), 22);
    EXPECT_EQ(below(line, text(u"Установочные"_s)), 22);

    press(u"Загрузки"_s);
    EXPECT_EQ(below(text(u"Пока нет"_s), text(u"Откройте"_s)), 8);
}

TEST_F(MeasuresTest, AnEntrysPageStandsAsPromised)
{
    open({brisko});
    press(u"Подробнее о Brisko"_s);
    const QRect page = placeOf(shown<PageScroll>()->widget());
    const QRect back = pressable(u"Назад к приложениям"_s);
    EXPECT_EQ(back.topLeft() - page.topLeft(), QPoint(24, 24));
    const QRect icon = placeOf(shown<AppIcon>());
    EXPECT_EQ(icon.size(), QSize(134, 134));
    EXPECT_EQ(beside(icon, text(u"Brisko"_s)), 25);
    EXPECT_EQ(below(text(u"Brisko"_s), text(brisko.subtitle)), 10);
    EXPECT_EQ(below(text(u"Orbanel"_s), pressable(u"Загрузить"_s)), 10 + 5);
    const QRect version = text(u"ВЕРСИЯ"_s);
    EXPECT_EQ(below(version, text(brisko.version)), 8);
    EXPECT_EQ(beside(version.united(text(brisko.version)), text(u"РАЗМЕР"_s)), 34);
    const QRect description = placeOf(shown<SelectableText>());
    EXPECT_EQ(below(text(brisko.headline), description), 22);
    EXPECT_LE(description.width(), 740);
    const QRect feature = text(brisko.features.at(0));
    EXPECT_EQ(below(feature, placeOf(shown<ScreenshotView>())), 22);
    EXPECT_LE(placeOf(shown<ScreenshotView>()).width(), 680);
    EXPECT_EQ(below(placeOf(shown<ScreenshotView>()), text(u"Как установить"_s)), 22 + 4);
    EXPECT_EQ(below(text(u"Скачайте ZIP"_s), text(u"Локальная"_s)), 22);
}

TEST_F(LayoutTest, HoldsWhateverTheTextsTheSizeAndTheDirection)
{
    StoreApp lengthy = brisko;
    lengthy.subtitle = u"Очень длинное описание "_s.repeated(20);
    lengthy.headline = lengthy.subtitle;
    lengthy.version = u"2.4-beta.17+build.20261122"_s.repeated(3);
    lengthy.minimum = u"13.0.1 (начиная с осеннего обновления)"_s;
    lengthy.category = u"A&B <b>x</b> "_s.repeated(10);
    lengthy.features = QStringList(30, u"Одна из многих возможностей"_s);
    StoreApp empty = kadrilo;
    platform.files.content.erase(platform.resource("Kadrilo.icns"));
    empty.subtitle = empty.headline = empty.description = empty.version = empty.category = QString();
    empty.features.clear();

    for (const auto& size : {QSize(760, 520), QSize(900, 620), QSize(1180, 840), QSize(3840, 2160)}) {
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            SCOPED_TRACE(
                testing::Message() << size.width() << (direction == Qt::RightToLeft ? " mirrored" : ""));
            open({lengthy, empty});
            view().setLayoutDirection(direction);
            view().setMinimumSize(size.boundedTo(view().minimumSize()));
            view().resize(size);
            settle();
            expectNothingOverlaps();
            for (const StoreApp& app : {lengthy, empty}) {
                view().answer(request::Open{app});
                settle();
                expectNothingOverlaps();
                view().answer(request::GoBack());
                settle();
            }
        }
    }
}

TEST_F(LayoutTest, TheColumnIsAtMost1300WideAndInTheMiddle)
{
    open({brisko});
    view().resize(2600, 1000);
    settle();

    const auto* const page = shown<PageScroll>();
    const QRect column = page->widget()->layout()->contentsRect();

    EXPECT_EQ(column.width(), 1300 - 2 * 24);
    EXPECT_NEAR(column.left(), page->viewport()->width() - 1 - column.right(), 1);
}

} // namespace
