#pragma once

#include <QPointer>
#include <QWidget>

class ProminentButton;
class SelectableText;
class TextLabel;

/// A message over the whole window, which is dimmed and out of reach until the message is dismissed: by its
/// button, Return, Escape or close(). Keys stay inside, except those that close the window or quit.
class MessageSheet : public QWidget {
    Q_OBJECT

public:
    /// A sheet or a modal dialog lies over this widget, be it in a sheet itself: whatever it is asked for has
    /// to wait.
    static bool covers(const QWidget& widget);

    /// Hidden until presented; covers `window` whatever its size becomes.
    explicit MessageSheet(QWidget* window);

    /// Shows the sheet, or only changes its texts where it is shown already; the same again changes nothing,
    /// and is not announced again. The focus goes to the button, which shows it where the keyboard asked for
    /// the message or the button that had the focus before showed it.
    void present(const QString& title, const QString& text, const QString& buttonTitle,
        bool isAskedByKeyboard = false);

    /// Hides the sheet and gives the focus back to whoever had it. Without a sheet shown, nothing happens.
    void dismiss();

Q_SIGNALS:
    /// The user has dismissed the message; the sheet is hidden already.
    void dismissed();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void placePanel();

    QWidget* m_panel;
    TextLabel* m_title;
    SelectableText* m_text;
    ProminentButton* m_button;
    QPointer<QWidget> m_focusBefore;
};
