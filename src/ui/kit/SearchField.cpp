#include "ui/kit/SearchField.h"

#include "ui/kit/Shapes.h"
#include "ui/kit/Style.h"
#include "ui/kit/SymbolButton.h"

#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

/// What a line edit leaves beside its text by itself.
constexpr int lineEditMargin = 2;

} // namespace

SearchField::SearchField(QWidget* parent)
    : QLineEdit(parent)
    , m_clear(new SymbolButton(u"xmark"_s, Style::clearSymbol, Style::secondaryText(), this))
{
    setFrame(false);
    const int bleed = (Style::fieldHeight - Style::clearSymbol) / 2;
    m_clear->setContentsMargins(bleed, bleed, bleed, bleed);
    m_clear->setAccessibleName(u"Очистить"_s);
    m_clear->setCursor(Qt::ArrowCursor);
    m_clear->setFocusPolicy(Qt::TabFocus);
    m_clear->hide();
    connect(this, &QLineEdit::textChanged, this, &SearchField::placeClear);
    connect(m_clear, &QAbstractButton::clicked, this, [this] {
        clear();
        setFocus();
    });
    setFont(Style::font(Style::field));
    QPalette colors = palette();
    colors.setColor(QPalette::Base, Qt::transparent);
    setPalette(colors);
}

void SearchField::present(const QString& text)
{
    if (text == this->text())
        return;
    const QSignalBlocker nobodyTyped(this);
    setText(text);
    placeClear();
}

void SearchField::placeClear()
{
    const QRect place = QStyle::alignedRect(
        layoutDirection(), Qt::AlignRight | Qt::AlignVCenter, m_clear->sizeHint(), rect());
    const int margin = Style::fieldMargin - lineEditMargin;
    const bool isNeeded = !text().isEmpty();
    const int room = isNeeded ? place.width() : margin;
    setTextMargins(isRightToLeft() ? room : margin, 0, isRightToLeft() ? margin : room, 0);
    m_clear->setGeometry(place);
    m_clear->setVisible(isNeeded);
}

void SearchField::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    placeClear();
}

QSize SearchField::sizeHint() const
{
    return {QLineEdit::sizeHint().width(), Style::fieldHeight};
}

QSize SearchField::minimumSizeHint() const
{
    return {QLineEdit::minimumSizeHint().width(), Style::fieldHeight};
}

void SearchField::mousePressEvent(QMouseEvent* event)
{
    // The mouse's back button means the page, wherever it is pressed.
    if (event->button() == Qt::BackButton)
        event->ignore();
    else
        QLineEdit::mousePressEvent(event);
}

void SearchField::paintEvent(QPaintEvent* event)
{
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const qreal width = hasFocus() ? Style::focusRing : Style::hairline;
        const QRectF border = QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2);
        painter.fillPath(continuousRect(rect(), Style::fieldCorner), Style::fieldFill());
        painter.strokePath(continuousRect(border, Style::fieldCorner),
            QPen(hasFocus() ? Style::accent() : Style::fieldBorder(), width));
    }
    QLineEdit::paintEvent(event);
}
