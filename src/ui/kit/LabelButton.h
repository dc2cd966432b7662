#pragma once

#include "ui/kit/PlainButton.h"
#include "ui/kit/TextLabel.h"

/// A symbol and a text that can be pressed.
class LabelButton : public PlainButton {
    Q_OBJECT

public:
    LabelButton(const TextLook& look, const QString& text, QWidget* parent = nullptr);
};
