#include "ui/AppIcon.h"

#include "platform/BundleLayout.h"
#include "platform/Platform.h"
#include "ui/kit/Accessibility.h"

#include <QPainter>

#include <cmath>

AppIcon::AppIcon(Style::Length size, QWidget* parent) : QWidget(parent), m_size(size)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    makeDecorative(*this);
    setVisible(false);
}

void AppIcon::present(const QString& name)
{
    m_name = name;
    if (load())
        update();
    setVisible(!m_image.isNull());
}

bool AppIcon::load()
{
    const qreal ratio = devicePixelRatio();
    const Path file = bundle_layout::icon(Platform::current().bundles.mainBundle(), m_name);
    if (!m_resource.load(file, int(std::ceil(m_size * ratio))))
        return false;
    m_image = m_resource.fitted(QSizeF(m_size, m_size), ratio);
    m_resource.releasePixels();
    return true;
}

QRectF AppIcon::imageRect() const
{
    QRectF frame({}, m_image.deviceIndependentSize());
    frame.moveCenter(QRectF(rect()).center());
    return frame;
}

QSize AppIcon::sizeHint() const
{
    return {m_size, m_size};
}

void AppIcon::paintEvent(QPaintEvent*)
{
    // The window may have moved to a screen of another density.
    if (m_image.devicePixelRatio() != devicePixelRatio())
        load();
    QPainter(this).drawImage(imageRect().topLeft(), m_image);
}
