#include "ui/kit/PlainToolTip.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

using namespace Qt::StringLiterals;

void showPlainToolTip(const QHelpEvent& event, const QString& text, QWidget& widget)
{
    // A tooltip guesses: what looks like markup has to become markup that shows it.
    const bool guessed = Qt::mightBeRichText(text);
    const QString shown =
        guessed ? u"<p style='white-space:pre-wrap'>%1</p>"_s.arg(text.toHtmlEscaped()) : text;
    QToolTip::showText(event.globalPos(), shown, &widget);
}
