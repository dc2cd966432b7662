#pragma once

#include <QBasicTimer>
#include <QWidget>

/// Turns while it is shown, and only then; shown again it goes on from where it stopped. Decorative: whoever
/// holds it says that it is busy.
class Spinner : public QWidget {
    Q_OBJECT

public:
    explicit Spinner(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QBasicTimer m_timer;
    int m_step = 0;
};
