#include "ui/kit/KitStyle.h"

#include "ui/kit/Style.h"
#include "ui/kit/Symbols.h"

#include <QFontMetrics>
#include <QIcon>
#include <QPainter>
#include <QStyleOptionMenuItem>
#include <QStyleOptionSlider>

using namespace Qt::StringLiterals;

KitStyle::KitStyle() : QProxyStyle(u"Fusion"_s) { }

int KitStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return 0; // The room of each arrow; how thick the bar is, sizeFromContents() says.
    case PM_ScrollBarSliderMin:
        return Style::px(32);
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
    if (type == CT_ScrollBar)
        return contents.expandedTo({Style::scrollBar, Style::scrollBar});
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
