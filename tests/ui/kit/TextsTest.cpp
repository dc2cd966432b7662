#include "ui/kit/SelectableText.h"
#include "ui/kit/TextLabel.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// What a tooltip shows at last of the text that it was given.
QString toolTipOf(QWidget& widget)
{
    QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), widget.mapToGlobal(QPoint(5, 5)));
    // The offscreen platform cannot raise the tooltip's window, and says so.
    const QtMessageHandler failing = qInstallMessageHandler(nullptr);
    QApplication::sendEvent(&widget, &event);
    qInstallMessageHandler(failing);
    QTextDocument shown;
    const QString text = QToolTip::text();
    Qt::mightBeRichText(text) ? shown.setHtml(text) : shown.setPlainText(text);
    return shown.toPlainText();
}

int lowestInk(QWidget& widget)
{
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    for (int y = image.height() - 1; y >= 0; --y)
        for (int x = 0; x < image.width(); ++x)
            if (qRed(image.pixel(x, y)) > 100)
                return y;
    return -1;
}

} // namespace

TEST(TextLabel, ATextThatIsCutIsWholeInItsTooltipAndExactlyAsTyped)
{
    for (const QString& text :
        {u"A&B and more that does not fit"_s, u"<b>bold</b> and <i>more</i>  of it"_s}) {
        SCOPED_TRACE(text.toStdString());
        TextLabel label({}, text);
        label.resize(60, 20);

        EXPECT_TRUE(label.isCut());
        EXPECT_EQ(toolTipOf(label), text);

        label.resize(label.sizeHint());
        QToolTip::hideText();
        EXPECT_FALSE(label.isCut());
        EXPECT_TRUE(label.minimumSizeHint().width() < label.width());
    }
}

TEST(TextLabel, OnlyNeighbouringLinesStandTheExtraDistanceApart)
{
    for (const int extra : {0, 5, 6}) {
        SCOPED_TRACE(extra);
        const TextLook look{.lines = Lines::Wrapped, .extra = {qreal(extra)}, .maxWidth = {100}};
        const TextLabel label(look, u"один\nдва\nтри"_s);
        const TextLabel wrapped(look, u"слово "_s.repeated(40));
        const int line = label.fontMetrics().height();

        EXPECT_EQ(label.heightForWidth(90), 3 * line + 2 * extra);
        EXPECT_EQ((wrapped.heightForWidth(100) + extra) % (line + extra), 0);
        EXPECT_EQ(wrapped.heightForWidth(1000), wrapped.heightForWidth(100));
        EXPECT_EQ(wrapped.sizeHint(), QSize(100, wrapped.heightForWidth(100)));
    }
}

TEST(TextLabel, LettersStandOnTheFirstBaseline)
{
    for (const TextLook& look : {TextLook{}, TextLook{.style = Style::pageTitle, .lines = Lines::Wrapped},
             TextLook{.style = Style::cardName}, TextLook{.lines = Lines::Wrapped}}) {
        TextLabel label(look, u"НИ"_s);
        label.resize(label.sizeHint());

        EXPECT_NEAR(lowestInk(label), label.firstBaseline() - 1, 1);
    }
}

TEST(SelectableText, IsAsHighAsItsLinesWithoutExtraAfterTheLast)
{
    constexpr int extra = 6;
    SelectableText text(Style::description, Style::secondaryText(), {extra});
    text.present(u"Слова стоят в строках. "_s.repeated(20) + u"\nНовый абзац\n"_s);
    for (const int width : {150, 333, 740}) {
        SCOPED_TRACE(width);

        text.resize(width, 50);
        text.grab(); // lays the document out

        EXPECT_EQ(text.heightForWidth(width), text.document()->size().height() - extra);
    }
}

TEST(SelectableText, TheSameTextAgainKeepsTheSelection)
{
    SelectableText text(Style::description, Style::secondaryText(), {6});
    text.present(u"<b>как есть</b>"_s);
    text.selectAll();

    text.present(u"<b>как есть</b>"_s);
    EXPECT_EQ(text.textCursor().selectedText(), u"<b>как есть</b>"_s);

    text.present(u"другое"_s);
    EXPECT_FALSE(text.textCursor().hasSelection());
}

TEST(SelectableText, TabAndTheWheelBelongToThePage)
{
    QWidget window;
    SelectableText text(Style::description, Style::secondaryText(), {6}, &window);
    QLineEdit next(&window);
    text.present(u"слово\n"_s.repeated(30));
    window.show();
    text.setFocus();

    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(text.viewport(), &wheel);
    EXPECT_FALSE(wheel.isAccepted());

    QTest::keyClick(&text, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &next);
}
