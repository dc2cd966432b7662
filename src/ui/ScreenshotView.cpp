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
        m_resource.clear();
    if (screenshot && m_resource.load(screenshot->file, Look::screenshotMaxWidth)) {
        m_fitted = {};
        updateGeometry();
        update();
    }
    setVisible(!m_resource.image().isNull());
}

QSize ScreenshotView::sizeHint() const
{
    return {Look::screenshotMaxWidth, heightForWidth(Look::screenshotMaxWidth)};
}

int ScreenshotView::heightForWidth(int width) const
{
    const QSize natural = m_resource.image().size();
    const int shown = std::min<int>(width, Look::screenshotMaxWidth);
    return natural.isEmpty() ? 0 : natural.height() * shown / natural.width();
}

void ScreenshotView::paintEvent(QPaintEvent*)
{
    const qreal ratio = devicePixelRatio();
    if (m_fitted.isNull() || m_fitted.devicePixelRatio() != ratio
        || m_fitted.deviceIndependentSize().width() > width()
        || m_fitted.deviceIndependentSize().width() < width() - 1)
        m_fitted = m_resource.fitted(size(), ratio);

    QRectF frame({}, m_fitted.deviceIndependentSize());
    frame.moveCenter(QRectF(rect()).center());
    QBrush picture(m_fitted);
    picture.setTransform(QTransform::fromTranslate(frame.left(), frame.top()));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRect(frame, Look::screenshotCorner), picture);
}
