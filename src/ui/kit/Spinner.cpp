#include "ui/kit/Spinner.h"

#include "ui/kit/Accessibility.h"
#include "ui/kit/Style.h"

#include <QPainter>

namespace {

constexpr int spokes = 8;
constexpr int tick = 100;

} // namespace

Spinner::Spinner(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    makeDecorative(*this);
}

QSize Spinner::sizeHint() const
{
    return {Style::spinner, Style::spinner};
}

void Spinner::showEvent(QShowEvent*)
{
    m_timer.start(tick, this);
}

void Spinner::hideEvent(QHideEvent*)
{
    m_timer.stop();
}

void Spinner::timerEvent(QTimerEvent*)
{
    m_step = (m_step + 1) % spokes;
    update();
}

void Spinner::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal reach = qMin(width(), height()) / 2.0;
    painter.translate(QRectF(rect()).center());
    painter.rotate(m_step * 360.0 / spokes);
    for (int spoke = 0; spoke < spokes; ++spoke) {
        QColor color = Style::white();
        color.setAlphaF(0.85f - 0.65f * float(spoke) / float(spokes - 1));
        painter.setPen(QPen(color, reach * 0.22, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -reach * 0.5), QPointF(0, -reach * 0.86));
        painter.rotate(-360.0 / spokes);
    }
}
