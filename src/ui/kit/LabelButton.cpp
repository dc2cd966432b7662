#include "ui/kit/LabelButton.h"

#include "ui/kit/Stacks.h"

#include <QBoxLayout>

LabelButton::LabelButton(const TextLook& look, const QString& text, QWidget* parent) : PlainButton(parent)
{
    setText(text);
    setContent(vstack({}, {new TextLabel(look, text)}));
}
