#include "ui/kit/MessageSheet.h"

#include "ui/kit/ProminentButton.h"
#include "ui/kit/SelectableText.h"
#include "ui/kit/Shapes.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/Style.h"
#include "ui/kit/TextLabel.h"

#include <QAccessible>
#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int shadowSteps = 10;

bool endsTheWindow(const QKeyEvent& key)
{
    return key.modifiers() == Qt::ControlModifier && (key.key() == Qt::Key_Q || key.key() == Qt::Key_W);
}

} // namespace

bool MessageSheet::covers(const QWidget& widget)
{
    const QWidget* const dialog = QApplication::activeModalWidget();
    const QWidget* sheet = nullptr;
    for (const auto* child : widget.window()->findChildren<MessageSheet*>(Qt::FindDirectChildrenOnly))
        sheet = child->isVisible() ? child : sheet;
    return (dialog && dialog != widget.window()) || (sheet && !sheet->isAncestorOf(&widget));
}

MessageSheet::MessageSheet(QWidget* window)
    : QWidget(window)
    , m_panel(new QWidget(this))
    , m_title(new TextLabel({.style = Style::sheetTitle, .lines = Lines::Wrapped}))
    , m_text(new SelectableText(Style::sheetText, Style::primaryText(), Style::sheetExtra))
    , m_button(new ProminentButton({}))
{
    hide();
    setAttribute(Qt::WA_NoMousePropagation);
    const int margin = Style::sheetMargin;
    m_panel->setLayout(vstack({.margins = {margin, margin, margin, margin}},
        {m_title, Gap{Style::sheetTextTop}, m_text, Gap{Style::sheetButtonTop},
            hstack({}, {Spacer{}, m_button})}));
    connect(m_button, &QAbstractButton::clicked, this, &MessageSheet::close);
}

void MessageSheet::present(
    const QString& title, const QString& text, const QString& buttonTitle, bool isAskedByKeyboard)
{
    const bool appears = isHidden();
    if (!appears && title == accessibleName() && text == accessibleDescription())
        return;
    m_title->setText(title);
    m_text->present(text);
    m_button->setText(buttonTitle);
    setAccessibleName(title);
    setAccessibleDescription(text);
    m_text->setAccessibleName(title);

    if (appears) {
        m_focusBefore = window()->focusWidget();
        parentWidget()->installEventFilter(this);
        setGeometry(parentWidget()->rect());
        raise();
        show();
        const auto* before = qobject_cast<PlainButton*>(m_focusBefore);
        const bool shows = isAskedByKeyboard || (before && before->showsFocus());
        m_button->setFocus(shows ? Qt::TabFocusReason : Qt::MouseFocusReason);
    }
    placePanel();
    QAccessibleEvent announcement(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&announcement);
}

void MessageSheet::dismiss()
{
    if (isHidden())
        return;
    parentWidget()->removeEventFilter(this);
    // Before hiding, which would hand the focus to whatever comes next.
    if (m_focusBefore && m_focusBefore->isVisible() && m_focusBefore->isEnabled())
        m_focusBefore->setFocus(Qt::PopupFocusReason);
    else if (QWidget* inside = window()->focusWidget())
        inside->clearFocus();
    m_focusBefore = nullptr;
    hide();
}

bool MessageSheet::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->setAccepted(!endsTheWindow(static_cast<QKeyEvent&>(*event)));
        return true;
    }
    return QWidget::event(event);
}

bool MessageSheet::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

bool MessageSheet::focusNextPrevChild(bool next)
{
    const auto reason = next ? Qt::TabFocusReason : Qt::BacktabFocusReason;
    if (m_button->hasFocus())
        m_text->setFocus(reason);
    else
        m_button->setFocus(reason);
    return true;
}

void MessageSheet::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        close();
        break;
    default:
        break;
    }
    event->accept();
}

void MessageSheet::closeEvent(QCloseEvent* event)
{
    event->ignore();
    dismiss();
    Q_EMIT dismissed();
}

void MessageSheet::resizeEvent(QResizeEvent*)
{
    placePanel();
}

void MessageSheet::placePanel()
{
    const int margin = Style::sheetMargin;
    const QSize most = size() - QSize(2 * margin, 2 * margin);
    const int width = qMin<int>(Style::sheetWidth, most.width());
    const int textWidth = width - 2 * margin;
    const int textHeight = m_text->heightForWidth(textWidth);
    m_text->setFixedSize(textWidth, textHeight);
    const int tooMuch = qMax(0, m_panel->layout()->totalHeightForWidth(width) - most.height());
    m_text->setFixedHeight(qMax(0, textHeight - tooMuch));
    m_text->setVerticalScrollBarPolicy(tooMuch > 0 ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);

    QRect place(0, 0, width, m_panel->layout()->totalHeightForWidth(width));
    place.moveCenter(rect().center());
    m_panel->setGeometry(place);
    update();
}

void MessageSheet::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), Style::dimming());
    const QRectF panel = m_panel->geometry();
    const qreal step = qreal(Style::sheetShadow) / shadowSteps;
    for (int i = shadowSteps; i > 0; --i) {
        const QRectF around = panel.adjusted(-i * step, -i * step, i * step, i * step);
        painter.fillPath(
            continuousRect(around.translated(0, Style::sheetShadow / 2.0), Style::sheetCorner + i * step),
            Style::sheetShade());
    }
    painter.fillPath(continuousRect(panel, Style::sheetCorner), Style::dialog());
}
