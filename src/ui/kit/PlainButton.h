#pragma once

#include <QAbstractButton>

#include <optional>

class QLayout;

/// What a button looks like: where it is hovered and pressed, and what the keyboard's ring runs around.
struct ButtonShape {
    QRectF rect;
    int corner = 0;
    /// Between the shape and the ring.
    int ringGap = 0;
};

/// A button that shows only its content: hover, press and keyboard focus appear as a soft rounded shape that
/// bleeds out of the content into the contents margins (see StackItem). Space, Return and Enter click; the
/// mouse does inside the shape, and the second press of a double click only where the first one was. For
/// assistive technology it is one button named by its accessible name or its text, whatever is drawn inside;
/// where it is checkable, one of several among which one is chosen.
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
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    /// Its ring lies inside the widget.
    virtual ButtonShape shape() const;
    /// What a subclass draws instead of a layout; its size.
    virtual QSize contentSize() const;
    bool hitButton(const QPoint& place) const override;
    bool isHovered() const;
    /// What lies over the shape while the button is pressed or hovered.
    std::optional<QColor> stateFill() const;
    /// The hover or press, over what is drawn already, and the ring.
    void drawState(QPainter& painter) const;
    void drawFocusRing(QPainter& painter) const;

private:
    bool m_keyboardFocus = false;
    bool m_hovered = false;
    /// The last press was here, and the mouse has not left since.
    bool m_wasPressed = false;
};
