#pragma once

#include <QLineEdit>

/// A single line to type into, with a rounded border and a red ring while it has the focus.
class SearchField : public QLineEdit {
    Q_OBJECT

public:
    /// The placeholder is its accessible name too.
    explicit SearchField(const QString& placeholder, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
