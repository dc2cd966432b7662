#include "ui/kit/ProminentButton.h"
#include "ui/kit/SymbolButton.h"

#include <QHoverEvent>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Where the pictures differ.
QRect changed(const QImage& before, const QImage& after)
{
    QRect area;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x)
            area |= before.pixel(x, y) == after.pixel(x, y) ? QRect() : QRect(x, y, 1, 1);
    }
    return area;
}

/// Where presses press, as far as its two middle lines show.
QRect hitArea(QAbstractButton& button)
{
    QRect area;
    for (int i = 0; i < button.width() + button.height(); ++i) {
        const QPoint place = i < button.width() ? QPoint(i, button.height() / 2)
                                                : QPoint(button.width() / 2, i - button.width());
        QTest::mousePress(&button, Qt::LeftButton, {}, place);
        area |= button.isDown() ? QRect(place, QSize(1, 1)) : QRect();
        QTest::mouseRelease(&button, Qt::LeftButton, {}, place);
    }
    return area;
}

} // namespace

TEST(PlainButton, HoverRingAndHitAreOneShapeOnAllSides)
{
    QWidget window;
    ProminentButton prominent(u"Открыть"_s, &window);
    SymbolButton symbol(u"arrow.down.circle"_s, {24}, Style::white(), &window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (auto& [button, distance] : {std::pair<PlainButton*, int>{&prominent, 4}, {&symbol, 2}}) {
        SCOPED_TRACE(distance);
        button->resize(button->sizeHint());
        const QRect hit = hitArea(*button);
        button->clearFocus();
        QHoverEvent leave(QEvent::HoverLeave, {-1, -1}, {}, QPointF(hit.center()));
        QCoreApplication::sendEvent(button, &leave);
        const QImage atRest = button->grab().toImage();

        QHoverEvent enter(QEvent::HoverEnter, QPointF(hit.center()), {}, {-1, -1});
        QCoreApplication::sendEvent(button, &enter);
        EXPECT_EQ(changed(atRest, button->grab().toImage()), hit);
        QCoreApplication::sendEvent(button, &leave);

        button->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(changed(atRest, button->grab().toImage()),
            hit.adjusted(-distance, -distance, distance, distance));
    }
}

TEST(PlainButton, ADoublePressWhereItStandsCountsTwice)
{
    ProminentButton button(u"Загрузить"_s);
    button.show();
    const QSignalSpy clicked(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseDClick(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 2);
}
