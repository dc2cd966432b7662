#pragma once

#include <QTextLayout>

/// The text with `mark` for each of its line breaks, of whichever kind.
QString withBreaks(const QString& text, QChar mark);

/// A plain text in lines, for whoever measures and draws the same text again and again: shaping it is what
/// costs, and it is shaped once for as long as it fits on its own lines.
class LaidText {
public:
    /// Lines are as high as their characters make them, those of `font` itself less `tightening`; `extra`
    /// lies between neighbours.
    LaidText(const QFont& font, int extra, int tightening = 0);

    void setText(const QString& text);

    /// As wide and high as the text is with no other line breaks than its own.
    QSize naturalSize() const;
    /// Breaks between words, and inside a word that is wider than `width`.
    int heightForWidth(int width) const;
    /// Lines stand left, right or in the middle as `align` says, whatever the direction of the text.
    void draw(QPainter& painter, const QRectF& place, Qt::Alignment align) const;

private:
    void breakLines(int width) const;

    int m_extra;
    int m_tightening;
    mutable QTextLayout m_layout;
    /// The width to which the lines are broken: 0 for not yet.
    mutable int m_width = 0;
    mutable int m_height = 0;
    mutable QSize m_natural;
};
