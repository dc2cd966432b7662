#pragma once

#include "ui/kit/Style.h"

#include <QWidget>

class QHBoxLayout;
class TextLabel;

/// A line drawing for the eye alone: assistive technology skips it.
class SymbolView : public QWidget {
    Q_OBJECT

public:
    /// The names are those of drawSymbol(); none draws nothing.
    SymbolView(const QString& name, Style::Length size, const QColor& color, QWidget* parent = nullptr);

    void setSymbol(const QString& name);
    void setColor(const QColor& color);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_name;
    int m_size;
    QColor m_color;
};

/// A symbol before a text, in the middle of the text's first line.
QHBoxLayout* symbolBefore(SymbolView* symbol, TextLabel* text, Style::Length gap = Style::symbolGap);
