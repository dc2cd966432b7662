#pragma once

#include "ui/kit/PlainButton.h"
#include "ui/kit/Style.h"

#include <QPointer>

class Spinner;

/// A symbol that can be pressed. While busy it is disabled and a spinner turns in its place.
class SymbolButton : public PlainButton {
    Q_OBJECT

public:
    enum class Activity { Ready, Busy };

    SymbolButton(const QString& symbol, Style::Length size, const QColor& color, QWidget* parent = nullptr);

    void present(Activity activity);
    Activity activity() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QSize contentSize() const override;

private:
    void placeSpinner();

    QString m_symbol;
    int m_size;
    QColor m_color;
    Activity m_activity = Activity::Ready;
    Spinner* m_spinner = nullptr;
    QPointer<QWidget> m_focusWent;
};
