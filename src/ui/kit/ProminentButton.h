#pragma once

#include "ui/kit/PlainButton.h"

/// The filled button of a main action.
class ProminentButton : public PlainButton {
    Q_OBJECT

public:
    explicit ProminentButton(const QString& title, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    ButtonShape shape() const override;
    QSize contentSize() const override;
};
