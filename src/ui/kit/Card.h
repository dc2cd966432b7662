#pragma once

#include "ui/kit/PlainButton.h"

#include <QColor>

/// A wide button on a rounded background whose colour runs from the top leading to the bottom trailing
/// corner.
class Card : public PlainButton {
    Q_OBJECT

public:
    Card(const QColor& start, const QColor& end, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_start;
    QColor m_end;
};
