#pragma once

#include "ui/kit/LaidText.h"
#include "ui/kit/Style.h"

#include <QLabel>

enum class Lines {
    /// One line, line breaks shown as spaces; a text that is too long is cut with an ellipsis, and a tooltip
    /// shows it whole.
    One,
    /// One line that is never narrower than its text.
    Whole,
    /// The lines it needs, broken where the text does and where the width makes it.
    Wrapped,
};

struct TextLook {
    Style::TextStyle style = Style::body;
    QColor color = Style::primaryText();
    Lines lines = Lines::One;
    /// Between neighbouring lines, beyond the font's own distance.
    Style::Length extra{0};
    /// Leading, centred or trailing where the label is wider than its text.
    Qt::Alignment align = Qt::AlignLeft;
    /// Assistive technology lists it among the headings of the page.
    bool heading = false;
};

/// A text exactly as typed: no markup, no mnemonics.
class TextLabel : public QLabel {
    Q_OBJECT

public:
    explicit TextLabel(const TextLook& look, const QString& text = {}, QWidget* parent = nullptr);

    /// Hides QLabel's, which would not measure anew.
    void setText(const QString& text);
    void setColor(const QColor& color);

    bool isHeading() const { return m_look.heading; }
    bool isCut() const;
    int lineHeight() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    TextLook m_look;
    LaidText m_laid;
};
