#pragma once

#include <QLineEdit>

class SymbolButton;

/// A single line to type into, with a rounded border and a red ring while it has the focus, and, while there
/// is text, a small button that empties it.
class SearchField : public QLineEdit {
    Q_OBJECT

public:
    explicit SearchField(QWidget* parent = nullptr);

    /// Shows a text that nobody typed: nothing is emitted, and the same text again moves no caret.
    void present(const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeClear();

    SymbolButton* m_clear;
};
