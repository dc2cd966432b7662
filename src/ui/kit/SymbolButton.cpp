#include "ui/kit/SymbolButton.h"

#include "ui/kit/Spinner.h"
#include "ui/kit/Symbols.h"

#include <QPainter>

SymbolButton::SymbolButton(const QString& symbol, Style::Length size, const QColor& color, QWidget* parent)
    : PlainButton(parent), m_symbol(symbol), m_size(size), m_color(color)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolButton::present(Activity activity)
{
    if (activity == m_activity)
        return;

    m_activity = activity;
    const bool busy = activity == Activity::Busy;
    if (busy && !m_spinner) {
        m_spinner = new Spinner(this);
        placeSpinner();
    }
    m_spinner->setVisible(busy);

    if (busy) {
        const bool focused = window()->focusWidget() == this;
        setEnabled(false);
        m_focusWent = focused ? window()->focusWidget() : nullptr;
    } else {
        setEnabled(true);
        // A button that cannot be pressed hands its focus on; it gets it back unless the user has taken it
        // elsewhere.
        if (m_focusWent && m_focusWent == window()->focusWidget())
            setFocus(Qt::OtherFocusReason);
        m_focusWent = nullptr;
    }
    update();
}

SymbolButton::Activity SymbolButton::activity() const
{
    return m_activity;
}

QSize SymbolButton::contentSize() const
{
    return {m_size, m_size};
}

void SymbolButton::resizeEvent(QResizeEvent*)
{
    placeSpinner();
}

void SymbolButton::placeSpinner()
{
    if (!m_spinner)
        return;
    QRect place(QPoint(), m_spinner->sizeHint());
    place.moveCenter(rect().center());
    m_spinner->setGeometry(place);
}

void SymbolButton::paintEvent(QPaintEvent* event)
{
    PlainButton::paintEvent(event);
    if (m_activity == Activity::Busy)
        return;
    QPainter painter(this);
    drawSymbol(painter, m_symbol, contentsRect(), isEnabled() ? m_color : Style::disabledText());
}
