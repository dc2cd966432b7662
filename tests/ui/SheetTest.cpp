#include "ui/Pictures.h"
#include "ui/UiTest.h"

#include "ui/AppRow.h"
#include "ui/FeaturedCardView.h"
#include "ui/Look.h"
#include "ui/SectionButton.h"
#include "ui/kit/Divider.h"
#include "ui/kit/MessageSheet.h"
#include "ui/kit/ProminentButton.h"
#include "ui/kit/SearchField.h"
#include "ui/kit/Spinner.h"
#include "ui/kit/SymbolButton.h"
#include "ui/kit/SymbolView.h"
#include "ui/kit/Symbols.h"

#include <QApplication>
#include <QHoverEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Pictures of widgets beside and below each other, on the window's background.
class Sheet {
public:
    Sheet() : m_image(600, 1300, QImage::Format_RGB32) { m_image.fill(Style::windowBackground()); }

    void add(QWidget& widget, QSize size)
    {
        widget.resize(size);
        if (m_next.x() + size.width() + gap > m_image.width())
            m_next = {gap, m_bottom + gap};
        const QImage picture = widget.grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QPainter(&m_image).drawImage(m_next, picture);
        m_bottom = qMax(m_bottom, m_next.y() + size.height());
        m_next.rx() += size.width() + gap;
    }

    QImage image() const { return m_image.copy(0, 0, m_image.width(), m_bottom + gap); }

private:
    static constexpr int gap = 12;
    QImage m_image;
    QPoint m_next{gap, gap};
    int m_bottom = gap;
};

void hover(QWidget& widget, QEvent::Type type)
{
    const QPointF inside = QRectF(widget.rect()).center();
    QHoverEvent event(type, inside, widget.mapToGlobal(inside), {-1, -1});
    QCoreApplication::sendEvent(&widget, &event);
}

/// The button as it is, hovered, pressed, and with the keyboard's ring.
void addStates(Sheet& sheet, PlainButton& button, QSize size)
{
    button.resize(size);
    button.show();
    button.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&button));
    button.clearFocus();
    hover(button, QEvent::HoverLeave);
    sheet.add(button, size);
    hover(button, QEvent::HoverEnter);
    sheet.add(button, size);
    button.setDown(true);
    sheet.add(button, size);
    button.setDown(false);
    hover(button, QEvent::HoverLeave);
    button.setFocus(Qt::TabFocusReason);
    sheet.add(button, size);
}

/// Nothing of it has words, so that no font matters and a stroke less shows.
using SheetTest = UiTest;

TEST_F(SheetTest, EachSymbolIsDrawnWithAllItsStrokes)
{
    Sheet sheet;
    for (const auto direction : {Qt::RightToLeft, Qt::LeftToRight}) {
        QApplication::setLayoutDirection(direction);
        for (const QString& name : symbolNames()) {
            SymbolView symbol(name, {72}, Style::primaryText());
            sheet.add(symbol, {72, 72});
        }
    }
    Spinner spinner;
    spinner.show();
    QTimerEvent turn(0);
    QCoreApplication::sendEvent(&spinner, &turn);
    sheet.add(spinner, {72, 72});
    expectPicture(u"symbols"_s, sheet.image(), {.block = 3, .distance = 60, .pixels = 2});
}

TEST_F(SheetTest, EachControlIsDrawnInItsStates)
{
    Sheet sheet;
    ProminentButton prominent({});
    addStates(sheet, prominent, {100, 38});
    SymbolButton symbol(u"arrow.down.circle"_s, Look::actionSymbol, Style::primaryText());
    addStates(sheet, symbol, symbol.sizeHint());
    symbol.present(SymbolButton::Activity::Busy);
    sheet.add(symbol, symbol.sizeHint());

    const SectionItem item{{{}, u"doc.text"_s}};
    SectionButton section(item.section);
    addStates(sheet, section, {120, 40});
    section.present({item.section, true});
    addStates(sheet, section, {120, 40});

    SearchField field;
    field.show();
    field.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    field.setReadOnly(true); // no caret, which would blink
    field.setFocus();
    sheet.add(field, {160, 28});
    field.clearFocus();
    sheet.add(field, {160, 28});
    field.present(u" "_s);
    sheet.add(field, {160, 28});
    QScrollBar bar;
    bar.setRange(0, 100);
    bar.setPageStep(50);
    bar.setValue(30);
    sheet.add(bar, {10, 90});
    Divider divider;
    sheet.add(divider, {120, 1});
    Requests requests;
    AppRow row(requests);
    AppRowContent content;
    content.icon = brisko.name;
    row.present(content);
    sheet.add(row, {400, 80});
    expectPicture(u"controls"_s, sheet.image(), {.block = 2, .distance = 24, .pixels = 6});
}

TEST_F(SheetTest, TheCardRunsFromRedToBlackUnderItsIconAndShadow)
{
    Sheet sheet;
    Requests requests;
    FeaturedCardView card(requests);
    FeaturedCard content;
    content.icon = brisko.name;
    card.present(content);
    addStates(sheet, card, {560, 228});
    card.setLayoutDirection(Qt::RightToLeft);
    settle();
    sheet.add(card, {560, 228});
    expectPicture(u"card"_s, sheet.image(), {.block = 4, .distance = 12, .pixels = 6});
}

} // namespace
