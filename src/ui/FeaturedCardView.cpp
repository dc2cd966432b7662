#include "ui/FeaturedCardView.h"

#include "ui/AppIcon.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>
#include <QPainter>

#include <utility>

using namespace Qt::StringLiterals;

FeaturedCardView::FeaturedCardView(Requests& requests, QWidget* parent)
    : Card(Style::cardStart(), Style::cardEnd(), parent)
    , m_slogan(new TextLabel({.style = Style::cardTitle, .color = Style::white(), .lines = Lines::Wrapped}))
    , m_name(new TextLabel({.style = Style::cardName, .color = Style::white()}))
    , m_summary(
          new TextLabel({.style = Style::cardNote, .color = Style::cardText(), .lines = Lines::Wrapped}))
    , m_action(
          new TextLabel({.style = Style::cardLink, .color = Style::white(), .symbol = u"arrow.up.right"_s}))
    , m_icon(new AppIcon(Style::cardIcon))
{
    const int margin = Style::cardMargin;
    auto* const texts = vstack({.spacing = Style::cardLineSpacing},
        {m_slogan, m_name, m_summary, vstack({.margins = {0, Style::cardLinkTop, 0, 0}}, {m_action})});
    setContent(hstack({.spacing = Style::cardSpacing, .margins = {margin, margin, margin, margin}},
        {stretched(texts), m_icon}));

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
    setAccessibleName(card.accessibleName);
}

void FeaturedCardView::paintEvent(QPaintEvent* event)
{
    Card::paintEvent(event);
    if (m_icon->image().isNull())
        return;
    const qint64 picture = m_icon->image().cacheKey();
    if (std::exchange(m_shadowOwner, picture) != picture)
        m_shadow =
            shadowOf(m_icon->image(), Style::shadowBlur, QPointF(0, Style::shadowOffset), Style::shadow());
    const QPointF icon = m_icon->mapTo(this, QPoint()) + m_icon->imageRect().topLeft();
    QPainter(this).drawImage(icon + m_shadow.position, m_shadow.image);
}
