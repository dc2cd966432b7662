#pragma once

#include "ui/kit/Style.h"

#include <QLabel>

/// One cuts a text that is too long with an ellipsis, and a tooltip shows it whole; Wrapped takes the lines
/// it needs and breaks where the text does.
enum class Lines { One, Wrapped };

struct TextLook {
    Style::TextStyle style = Style::body;
    QColor color = Style::primaryText();
    Lines lines = Lines::One;
    /// Between neighbouring lines, beyond the font's own distance.
    Style::Length extra{0};
    /// 0: any width.
    Style::Length maxWidth{0};
    /// The name of a drawing before the text, in the text's colour.
    QString symbol = {};
    /// 0: the size that suits the font.
    Style::Length symbolSize{0};
    Style::Length symbolGap = Style::symbolGap;
    /// Leading, centred or trailing where the label is wider than its text.
    Qt::Alignment align = Qt::AlignLeft;
};

/// A text exactly as typed: no markup, no mnemonics. A symbol made without a text is decorative.
class TextLabel : public QLabel {
    Q_OBJECT

public:
    explicit TextLabel(TextLook look, const QString& text = {}, QWidget* parent = nullptr);

    void setColor(const QColor& color);

    /// From the top of the label at its natural height to the baseline of its first line.
    int firstBaseline() const;
    bool isCut() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int lineHeight() const;
    int symbolSize() const;
    /// The room that the symbol takes before the text.
    int indentOfText() const;
    int heightOf(int lineCount) const;
    QSize natural() const;
    void paintText(QPainter& painter, const QRectF& place) const;

    TextLook m_look;
    mutable QString m_measuredText;
    mutable QSize m_natural;
};
