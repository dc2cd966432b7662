#pragma once

#include <QString>

class QFont;
class QTextLayout;

/// Breaks the text into lines no wider than `width`, between words where that can be, and lays the tops of
/// the lines `pitch` apart, each in the middle of its `height`. Returns the number of lines.
int breakLines(QTextLayout& layout, qreal width, qreal height, qreal pitch);

/// How many lines a plain text takes.
int countLines(const QString& text, const QFont& font, qreal width);

/// A plain text as a text layout wants it: line breaks as line separators.
QString withLineSeparators(QString text);
