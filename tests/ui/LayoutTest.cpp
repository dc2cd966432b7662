#include "ui/UiTest.h"

#include "ui/kit/PageScroll.h"
#include "ui/kit/TextLabel.h"

#include <QLayout>
#include <QTest>

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
