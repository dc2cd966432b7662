#include "ui/kit/KitStyle.h"

#include "ui/kit/Style.h"
#include "ui/kit/Symbols.h"

#include <QFontMetrics>
#include <QIcon>
#include <QPainter>
#include <QStyleOptionMenuItem>
#include <QStyleOptionSlider>

using namespace Qt::StringLiterals;

namespace {

QRect thumbOf(const QStyleOptionSlider& bar)
{
    const bool vertical = bar.orientation == Qt::Vertical;
    const int groove = vertical ? bar.rect.height() : bar.rect.width();
    const qint64 range = qint64(bar.maximum) - bar.minimum + bar.pageStep;
    const int shortest = Style::px(32);
    const int length =
        range > 0 ? qMin(groove, qMax(shortest, int(groove * qint64(bar.pageStep) / range))) : groove;
    const int start = QStyle::sliderPositionFromValue(
        bar.minimum, bar.maximum, bar.sliderPosition, groove - length, bar.upsideDown);
    return vertical ? QRect(bar.rect.x(), bar.rect.y() + start, bar.rect.width(), length)
                    : QRect(bar.rect.x() + start, bar.rect.y(), length, bar.rect.height());
}

} // namespace

KitStyle::KitStyle() : QProxyStyle(u"Fusion"_s) { }

int KitStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return Style::scrollBar;
    case PM_MenuBarHMargin:
        return Style::menuBarMarginX;
    case PM_MenuBarVMargin:
        return Style::menuBarMarginY;
    case PM_MenuBarItemSpacing:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

// A menu bar asks at once for the arrow that it would show when it is too narrow, and that arrow alone would
// make Qt load every image plug-in: ours is drawn instead.
QIcon KitStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const
{
    if (icon != SP_ToolBarHorizontalExtensionButton)
        return QProxyStyle::standardIcon(icon, option, widget);
    const int edge = 2 * Style::menuBarMarginX;
    QPixmap arrow(edge, edge);
    arrow.fill(Qt::transparent);
    QPainter painter(&arrow);
    painter.setLayoutDirection(Qt::RightToLeft);
    drawSymbol(painter, u"chevron.left", arrow.rect(), Style::primaryText());
    return QIcon(arrow);
}

QSize KitStyle::sizeFromContents(
    ContentsType type, const QStyleOption* option, const QSize& contents, const QWidget* widget) const
{
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuBarItem || !item)
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    const int text = QFontMetrics(item->font).horizontalAdvance(item->text);
    return {text + 2 * Style::menuTitleMargin, Style::menuBarHeight - 2 * Style::menuBarMarginY};
}

void KitStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    if (element != PE_PanelTipLabel) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    painter->fillRect(option->rect, Style::dialog());
    painter->setPen(QPen(Style::divider(), 1));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
}

void KitStyle::drawControl(
    ControlElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuBarItem || !item) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    painter->setFont(item->font);
    QStyleOptionMenuItem shown = *item;
    // Else nothing tells where the keyboard is until a menu opens.
    if (shown.state.testFlag(State_Selected))
        shown.state |= State_Sunken;
    QProxyStyle::drawControl(element, &shown, painter, widget);
}

QRect KitStyle::subControlRect(
    ComplexControl control, const QStyleOptionComplex* option, SubControl part, const QWidget* widget) const
{
    const auto* bar =
        control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
    if (!bar)
        return QProxyStyle::subControlRect(control, option, part, widget);

    const QRect thumb = thumbOf(*bar);
    const bool vertical = bar->orientation == Qt::Vertical;
    QRect rect = bar->rect;
    switch (part) {
    case SC_ScrollBarGroove:
        break;
    case SC_ScrollBarSlider:
        rect = thumb;
        break;
    case SC_ScrollBarSubPage:
        vertical ? rect.setBottom(thumb.top() - 1) : rect.setRight(thumb.left() - 1);
        break;
    case SC_ScrollBarAddPage:
        vertical ? rect.setTop(thumb.bottom() + 1) : rect.setLeft(thumb.right() + 1);
        break;
    default:
        return {};
    }
    return visualRect(bar->direction, bar->rect, rect);
}

void KitStyle::drawComplexControl(
    ComplexControl control, const QStyleOptionComplex* option, QPainter* painter, const QWidget* widget) const
{
    const auto* bar =
        control == CC_ScrollBar ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
    if (!bar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    if (bar->maximum <= bar->minimum)
        return;

    const bool lively = bar->state.testFlag(State_MouseOver) || bar->state.testFlag(State_Sunken);
    const QRectF thumb = subControlRect(control, option, SC_ScrollBarSlider, widget);
    const qreal gap = Style::px(2);
    const QRectF line = thumb.adjusted(gap, gap, -gap, -gap);
    const qreal corner = qMin(line.width(), line.height()) / 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(lively ? Style::scrollThumbHovered() : Style::scrollThumb());
    painter->drawRoundedRect(line, corner, corner);
    painter->restore();
}
