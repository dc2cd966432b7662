#pragma once

#include <QAbstractButton>

class QLayout;

/// A button that shows only its content: hover, press and keyboard focus appear as a soft rounded shape that
/// bleeds out of the content into the contents margins, which stacks do not count (see BleedItem). Space,
/// Return and Enter click. For assistive technology it is one button named by its accessible name or its
/// text, whatever is drawn inside.
class PlainButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit PlainButton(QWidget* parent = nullptr);

    /// The widgets of `content` become the button's picture; the mouse and assistive technology see the
    /// button alone.
    void setContent(QLayout* content);

    /// The focus came by the keyboard, or keys were used since.
    bool showsFocus() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    void drawFocusRing(QPainter& painter, const QRectF& around, qreal corner) const;
    /// What a subclass draws instead of a layout; its size.
    virtual QSize contentSize() const;

private:
    bool m_keyboardFocus = false;
};
