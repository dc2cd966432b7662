#include "ui/kit/Divider.h"

#include "ui/kit/Accessibility.h"
#include "ui/kit/Style.h"

#include <QPainter>

Divider::Divider(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    makeDecorative(*this);
}

QSize Divider::sizeHint() const
{
    return {0, Style::hairline};
}

void Divider::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), Style::divider());
}
