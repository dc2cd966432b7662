#pragma once

#include <QScrollArea>

class QLayout;

/// A page that scrolls up and down, never sideways: its column stands in the middle, at most
/// Style::pageMaxWidth wide with its margins. Home, End, the page keys and the arrows scroll while the focus
/// is inside and has no use for them; whatever takes the focus by the keyboard is brought into view.
class PageScroll : public QScrollArea {
    Q_OBJECT

public:
    explicit PageScroll(QWidget* parent = nullptr);
    ~PageScroll() override;

    /// Replaces nothing: call once.
    void setPage(QLayout* column);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Lays the scroll bar over the page's margin, so that its coming and going moves nothing.
    void floatBar();
    void fitPage();
    void followFocus(QWidget* old, QWidget* now);
};
