#include "ui/ScreenshotView.h"

#include "ui/Look.h"
#include "ui/kit/Accessibility.h"
#include "ui/kit/Shapes.h"
#include "ui/kit/Style.h"

#include <QPainter>

#include <algorithm>

ScreenshotView::ScreenshotView(QWidget* parent) : QWidget(parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setMaximumWidth(Look::screenshotMaxWidth);
    makeGraphic(*this);
    setVisible(false);
}

void ScreenshotView::present(const std::optional<Screenshot>& screenshot)
{
    setAccessibleName(screenshot ? screenshot->accessibleName : QString());
    if (!screenshot)
        m_picture.clear();
    const QSize box(Look::screenshotMaxWidth, QWIDGETSIZE_MAX);
    if (screenshot && m_picture.load(screenshot->file, box, devicePixelRatio())) {
        updateGeometry();
        update();
    }
    setVisible(!m_picture.image().isNull());
}

QSize ScreenshotView::sizeHint() const
{
    return {Look::screenshotMaxWidth, heightForWidth(Look::screenshotMaxWidth)};
}

int ScreenshotView::heightForWidth(int width) const
{
    const QSize picture = m_picture.image().size();
    const int shown = std::min<int>(width, Look::screenshotMaxWidth);
    return picture.isEmpty() ? 0 : picture.height() * shown / picture.width();
}

void ScreenshotView::paintEvent(QPaintEvent*)
{
    QBrush picture(m_picture.image());
    const QSizeF natural = m_picture.image().deviceIndependentSize();
    picture.setTransform(QTransform::fromScale(width() / natural.width(), height() / natural.height()));
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.fillPath(continuousRect(rect(), Look::screenshotCorner), picture);
}
