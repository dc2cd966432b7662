#include "ui/kit/SelectableText.h"

#include "ui/kit/Accessibility.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QStyle>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QWheelEvent>

namespace {

constexpr int caretWidth = 1;

} // namespace

SelectableText::SelectableText(
    const Style::TextStyle& style, const QColor& color, Style::Length extra, QWidget* parent)
    : QTextEdit(parent), m_extra(extra), m_laid(Style::font(style), extra)
{
    setFrameStyle(QFrame::NoFrame);
    setFont(Style::font(style));
    QPalette colors = palette();
    colors.setColor(QPalette::Text, color);
    setPalette(colors);
    viewport()->setAutoFillBackground(false);
    makeDecorative(*viewport());
    document()->setDocumentMargin(0);
    setAcceptRichText(false);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void SelectableText::present(const QString& text)
{
    if (text == m_presented)
        return;
    m_presented = text;
    setPlainText(text);
    m_laid.setText(text);
    QTextBlockFormat lines;
    lines.setLineHeight(m_extra, QTextBlockFormat::LineDistanceHeight);
    lines.setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignAbsolute);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(lines);
    updateGeometry();
}

QSize SelectableText::sizeHint() const
{
    const int width = qMin(m_laid.naturalSize().width() + caretWidth, maximumWidth());
    return {width, heightForWidth(width)};
}

QSize SelectableText::minimumSizeHint() const
{
    return {qMin(sizeHint().width(), fontMetrics().averageCharWidth() * 12), fontMetrics().height()};
}

bool SelectableText::hasHeightForWidth() const
{
    return true;
}

int SelectableText::heightForWidth(int width) const
{
    return m_laid.heightForWidth(qMin(width, maximumWidth()));
}

void SelectableText::mousePressEvent(QMouseEvent* event)
{
    // The mouse's back button means the page, wherever it is pressed.
    if (event->button() == Qt::BackButton)
        event->ignore();
    else
        QTextEdit::mousePressEvent(event);
}

void SelectableText::wheelEvent(QWheelEvent* event)
{
    if (verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOff)
        event->ignore();
    else
        QTextEdit::wheelEvent(event);
}
