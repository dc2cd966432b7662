#pragma once

#include <QWidget>

/// A thin horizontal line across its column.
class Divider : public QWidget {
    Q_OBJECT

public:
    explicit Divider(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
