#include "ui/AppIcon.h"

#include "platform/BundleLayout.h"
#include "platform/Platform.h"
#include "ui/kit/Accessibility.h"

#include <QPainter>

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
    setVisible(!image().isNull());
}

bool AppIcon::load()
{
    const Path file = bundle_layout::icon(Platform::current().bundles.mainBundle(), m_name);
    return m_picture.load(file, {m_size, m_size}, devicePixelRatio());
}

QSize AppIcon::sizeHint() const
{
    return {m_size, m_size};
}

void AppIcon::paintEvent(QPaintEvent*)
{
    // The window may have moved to a screen of another density.
    if (image().devicePixelRatio() != devicePixelRatio())
        load();
    QRectF frame({}, image().deviceIndependentSize());
    frame.moveCenter(QRectF(rect()).center());
    QPainter(this).drawImage(frame.topLeft(), image());
}
