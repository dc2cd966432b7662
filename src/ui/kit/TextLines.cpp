#include "ui/kit/TextLines.h"

#include <QTextLayout>

int breakLines(QTextLayout& layout, qreal width, qreal height, qreal pitch)
{
    QTextOption option = layout.textOption();
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    int count = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, count * pitch + (height - line.height()) / 2});
        ++count;
    }
    layout.endLayout();
    return count;
}

int countLines(const QString& text, const QFont& font, qreal width)
{
    QTextLayout layout(withLineSeparators(text), font);
    return qMax(1, breakLines(layout, width, 0, 0));
}

QString withLineSeparators(QString text)
{
    return text.replace(u'\n', QChar::LineSeparator);
}
