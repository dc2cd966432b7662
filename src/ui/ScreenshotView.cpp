#include "ui/ScreenshotView.h"

#include "ui/ResourceImage.h"
#include "ui/kit/Shapes.h"
#include "ui/kit/Style.h"

#include <QPainter>

#include <algorithm>

ScreenshotView::ScreenshotView(QWidget* parent) : QWidget(parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setMaximumWidth(Style::screenshotMaxWidth);
    setVisible(false);
}

void ScreenshotView::present(const std::optional<Path>& file, const QString& accessibleName)
{
    QImage image = file ? loadImage(*file, Style::screenshotMaxWidth) : QImage();
    setVisible(!image.isNull());
    setAccessibleName(accessibleName);
    if (image == m_image)
        return;
    m_image = std::move(image);
    m_fitted = {};
    updateGeometry();
    update();
}

QSize ScreenshotView::sizeHint() const
{
    return {Style::screenshotMaxWidth, heightForWidth(Style::screenshotMaxWidth)};
}

int ScreenshotView::heightForWidth(int width) const
{
    return m_image.isNull()
        ? 0
        : m_image.height() * std::min<int>(width, Style::screenshotMaxWidth) / m_image.width();
}

void ScreenshotView::paintEvent(QPaintEvent*)
{
    const qreal ratio = devicePixelRatio();
    if (m_fitted.isNull() || m_fitted.devicePixelRatio() != ratio
        || m_fitted.deviceIndependentSize().width() > width()
        || m_fitted.deviceIndependentSize().width() < width() - 1)
        m_fitted = fitted(m_image, size(), ratio);

    QRectF frame({}, m_fitted.deviceIndependentSize());
    frame.moveCenter(QRectF(rect()).center());
    QBrush picture(m_fitted);
    picture.setTransform(QTransform::fromTranslate(frame.left(), frame.top()));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(continuousRect(frame, Style::screenshotCorner), picture);
}
