#include "ui/FeaturedCardView.h"

#include "ui/AppIcon.h"
#include "ui/Look.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolView.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>
#include <QLinearGradient>
#include <QPainter>

#include <utility>

using namespace Qt::StringLiterals;

FeaturedCardView::FeaturedCardView(Requests& requests, QWidget* parent)
    : PlainButton(parent)
    , m_slogan(new TextLabel({.style = Look::cardTitle, .color = Style::white(), .lines = Lines::Wrapped}))
    , m_name(new TextLabel({.style = Look::cardName, .color = Style::white()}))
    , m_summary(new TextLabel({.style = Look::cardNote, .color = Look::cardText(), .lines = Lines::Wrapped}))
    , m_action(new TextLabel({.style = Look::cardLink, .color = Style::white()}))
    , m_icon(new AppIcon(Look::cardIcon))
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

ButtonShape FeaturedCardView::shape() const
{
    return {contentsRect(), Look::cardCorner, Style::focusGap};
}

void FeaturedCardView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBackground(painter);
    drawFocusRing(painter);
    drawShadow(painter);
}

/// The colours change along the diagonal alone: each line has those of the one above it, moved on. Computing
/// them for one line, and covering the corners afterwards, takes a fraction of what a gradient does.
void FeaturedCardView::drawBackground(QPainter& painter) const
{
    const QRect card = contentsRect();
    const qreal ratio = devicePixelRatio();
    const int width = int(card.width() * ratio);
    const int height = int(card.height() * ratio);
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    QLinearGradient gradient(0, 0, 2 * width, 0);
    gradient.setColorAt(mirrored ? 1 : 0, Look::cardStart());
    gradient.setColorAt(mirrored ? 0 : 1, Look::cardEnd());
    QImage colors(2 * width, 1, QImage::Format_RGB32);
    QPainter linePainter(&colors);
    linePainter.fillRect(colors.rect(), gradient);
    if (const auto fill = stateFill())
        linePainter.fillRect(colors.rect(), *fill);
    linePainter.end();

    painter.save();
    painter.translate(card.topLeft());
    painter.scale(1 / ratio, 1 / ratio);
    for (int line = 0; line < height; ++line) {
        const int moved = line * width / height;
        painter.drawImage(QPoint(0, line), colors, QRect(mirrored ? width - moved : moved, 0, width, 1));
    }
    painter.restore();

    QPainterPath corners = continuousRect(card, Look::cardCorner);
    corners.addRect(card);
    // The mode in which Qt fills at once; for an opaque colour it looks the same as any other.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillPath(corners, Style::windowBackground());
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void FeaturedCardView::drawShadow(QPainter& painter)
{
    if (m_icon->image().isNull())
        return;
    const qint64 picture = m_icon->image().cacheKey();
    if (std::exchange(m_shadowOwner, picture) != picture)
        m_shadow =
            shadowOf(m_icon->image(), Look::shadowBlur, QPointF(0, Look::shadowOffset), Look::shadow());
    const QPointF icon = m_icon->mapTo(this, QPoint()) + m_icon->imageRect().topLeft();
    painter.drawImage(icon + m_shadow.position, m_shadow.image);
}
