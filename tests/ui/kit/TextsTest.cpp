#include "ui/kit/FairRow.h"
#include "ui/kit/SearchField.h"
#include "ui/kit/SelectableText.h"
#include "ui/kit/TextLabel.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHelpEvent>
#include <QMenu>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>

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
    }
    for (const QString& broken : {u"a\nb"_s, u"a\rb"_s, u"a\r\nb"_s, u"a\u2028b"_s, u"a\u2029b"_s})
        EXPECT_EQ(TextLabel({}, broken).sizeHint(), TextLabel({}, u"a b"_s).sizeHint());
}

TEST(SelectableText, IsAsHighAsItsLinesAndTakesTheMouseInEveryFont)
{
    for (const QString& family : {u"Inter"_s, u"DejaVu Sans"_s, u"DejaVu Serif"_s, u"monospace"_s}) {
        const QFont before = QApplication::font();
        QFont font = before;
        font.setFamilies({family});
        QApplication::setFont(font);
        constexpr int extra = 6;
        SelectableText text({16}, Style::secondaryText(), {extra});
        QApplication::setFont(before);
        text.present(u"Слова стоят в строках, и 🙂 тоже. "_s.repeated(20)
            + u"\nНовый\rабзац\u2029и\u2028строка\r\n"_s);
        for (const int width : {150, 333, 740}) {
            SCOPED_TRACE(testing::Message() << family.toStdString() << ' ' << width);
            text.resize(width, 50);
            text.grab(); // lays the document out
            EXPECT_EQ(text.heightForWidth(width), text.document()->size().height() - extra);
        }
        QTest::mouseClick(text.viewport(), Qt::LeftButton, {}, {60, 10});
        EXPECT_GT(text.textCursor().position(), 0);
    }
}

TEST(FairRow, TheWidestGiveWayAndWrapAndNothingLeavesTheRow)
{
    QWidget window;
    auto* const row = new FairRow(10);
    QList<TextLabel*> labels;
    for (const QString& text :
        {u"Утилиты"_s, u"2.4-beta.17 "_s.repeated(30), u"ВЕРСИЯ"_s, u"слово "_s.repeated(50)}) {
        labels.append(new TextLabel({.lines = text == u"ВЕРСИЯ"_s ? Lines::Whole : Lines::Wrapped}, text));
        row->addWidget(labels.last());
    }
    window.setLayout(row);
    for (const int width : {300, 500, 900}) {
        SCOPED_TRACE(width);
        row->setGeometry({0, 0, width, row->heightForWidth(width)});

        EXPECT_EQ(labels[0]->width(), labels[0]->sizeHint().width());
        EXPECT_EQ(labels[2]->width(), labels[2]->sizeHint().width());
        EXPECT_NEAR(labels[1]->width(), labels[3]->width(), 1);
        EXPECT_NEAR(labels[3]->geometry().right(), width - 1, 2);
        EXPECT_GE(labels[1]->height(), labels[1]->heightForWidth(labels[1]->width()));
    }
}

TEST(SearchField, IsEmptiedByItsButtonWhichIsThereOnlyWithText)
{
    SearchField field;
    field.show();
    auto* const clear = field.findChild<QAbstractButton*>();
    EXPECT_FALSE(clear->isVisible());
    field.present(u"brisko"_s);
    EXPECT_TRUE(clear->isVisible());

    QTest::mouseClick(clear, Qt::LeftButton);

    EXPECT_EQ(field.text(), QString());
    EXPECT_FALSE(clear->isVisible());
    std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
    QStringList words;
    for (const QAction* action : menu->actions())
        words += action->text().section(u'\t', 0, 0);
    words.removeAll(QString());
    EXPECT_EQ(words.join(u' '), u"Отменить Повторить Вырезать Копировать Вставить Удалить Выделить всё"_s);
}
