#pragma once

#include "ui/kit/LaidText.h"
#include "ui/kit/Style.h"

#include <QTextEdit>

/// A plain text to read, select and copy, with the mouse or the keyboard. As high as its width makes it; it
/// scrolls only where it is made lower and given a scroll bar.
class SelectableText : public QTextEdit {
    Q_OBJECT

public:
    SelectableText(
        const Style::TextStyle& style, const QColor& color, Style::Length extra, QWidget* parent = nullptr);

    /// The same text again changes nothing, neither selection nor scroll offset.
    void present(const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int m_extra;
    QString m_presented;
    /// Measures what the document shows.
    LaidText m_laid;
};
