#pragma once

#include "ui/kit/LaidText.h"
#include "ui/kit/PlainButton.h"

/// The filled button of a main action.
class ProminentButton : public PlainButton {
    Q_OBJECT

public:
    explicit ProminentButton(const QString& title, QWidget* parent = nullptr);

    /// Hides QAbstractButton's, which would not measure anew.
    void setText(const QString& title);

protected:
    void paintEvent(QPaintEvent* event) override;
    ButtonShape shape() const override;
    QSize contentSize() const override;

private:
    LaidText m_title;
};
