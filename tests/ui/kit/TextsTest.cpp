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

TEST(SelectableText, IsAsHighAsItsLinesWithoutExtraAfterTheLast)
{
    constexpr int extra = 6;
    SelectableText text(Style::body, Style::secondaryText(), {extra});
    text.present(u"Слова стоят в строках. "_s.repeated(20) + u"\nНовый абзац\n"_s);
    for (const int width : {150, 333, 740}) {
        SCOPED_TRACE(width);

        text.resize(width, 50);
        text.grab(); // lays the document out

        EXPECT_EQ(text.heightForWidth(width), text.document()->size().height() - extra);
    }
}
