#include "ui/FeaturedCardView.h"

#include "ui/AppIcon.h"
#include "ui/Look.h"
#include "ui/kit/Shapes.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolView.h"
#include "ui/kit/TextLabel.h"

#include <QGraphicsDropShadowEffect>
#include <QHBoxLayout>
#include <QLinearGradient>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

/// Qt's effect fades exponentially and counts device pixels: with so many times the radius of a usual blur it
/// looks like one.
constexpr qreal effectRadius = 2.5;

} // namespace

FeaturedCardView::FeaturedCardView(Requests& requests, QWidget* parent)
    : PlainButton(parent)
    , m_slogan(new TextLabel({.style = Look::cardTitle, .color = Style::white(), .lines = Lines::Wrapped}))
    , m_name(new TextLabel({.style = Look::cardName, .color = Style::white()}))
    , m_summary(new TextLabel({.style = Look::cardNote, .color = Look::cardText(), .lines = Lines::Wrapped}))
    , m_action(new TextLabel({.style = Look::cardLink, .color = Style::white()}))
    , m_icon(new AppIcon(Look::cardIcon))
    , m_shadow(new QGraphicsDropShadowEffect(m_icon))
{
    const int bleed = Style::focusGap + Style::focusRing;
    setContentsMargins(bleed, bleed, bleed, bleed);
    setMinimumHeight(Look::cardMinHeight + 2 * bleed);
    QSizePolicy fill(QSizePolicy::Expanding, QSizePolicy::Minimum);
    fill.setHeightForWidth(true);
    setSizePolicy(fill);

    const int margin = Look::cardMargin;
    auto* const arrow = new SymbolView(u"arrow.up.right"_s, Style::symbolFor(Look::cardLink), Style::white());
    auto* const texts = vstack({.spacing = Look::cardLineSpacing},
        {
            m_slogan,
            m_name,
            m_summary,
            vstack({.margins = {0, Look::cardLinkTop, 0, 0}}, {symbolBefore(arrow, m_action)}),
        });
    setContent(hstack({.spacing = Look::cardSpacing, .margins = {margin, margin, margin, margin}},
        {stretched(texts), m_icon}));
    m_shadow->setOffset(0, Look::shadowOffset);
    m_shadow->setColor(Look::shadow());
    m_icon->setGraphicsEffect(m_shadow);

    connect(this, &QAbstractButton::clicked, this,
        [this, &requests] { Q_EMIT requests.sent(request::Open{m_target}); });
}

void FeaturedCardView::present(const FeaturedCard& card)
{
    m_target = card.target;
    m_slogan->setText(card.slogan);
    m_name->setText(card.name);
    m_summary->setText(card.summary);
    m_action->setText(card.action);
    m_icon->present(card.icon);
    m_shadow->setBlurRadius(effectRadius * Look::shadowBlur * devicePixelRatio());
    setAccessibleName(card.accessibleName);
}

ButtonShape FeaturedCardView::shape() const
{
    return {contentsRect(), Look::cardCorner, Style::focusGap};
}

void FeaturedCardView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal leading = layoutDirection() == Qt::RightToLeft ? 1 : 0;
    QLinearGradient colors(leading, 0, 1 - leading, 1);
    colors.setCoordinateMode(QGradient::ObjectMode);
    colors.setColorAt(0, Look::cardStart());
    colors.setColorAt(1, Look::cardEnd());
    const QPainterPath shape = continuousRect(contentsRect(), Look::cardCorner);
    painter.fillPath(shape, colors);
    if (const auto fill = stateFill())
        painter.fillPath(shape, *fill);
    drawFocusRing(painter);
}
