#include "ui/AppRow.h"

#include "ui/ActionButtons.h"
#include "ui/AppIcon.h"
#include "ui/Look.h"
#include "ui/kit/PlainButton.h"
#include "ui/kit/ProminentButton.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolButton.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

AppRow::AppRow(Requests& requests, QWidget* parent)
    : QWidget(parent)
    , m_icon(new AppIcon(Look::rowIcon))
    , m_iconButton(new PlainButton)
    , m_textButton(new PlainButton)
    , m_name(new TextLabel({.style = Look::rowName}))
    , m_subtitle(new TextLabel({.style = Look::rowSubtitle, .color = Style::secondaryText()}))
    , m_meta(new TextLabel({.style = Look::rowMeta, .color = Style::secondaryText()}))
    , m_actions(new ActionButtons(requests))
{
    m_iconButton->setContent(hstack({}, {m_icon}));
    m_textButton->setContent(vstack({.spacing = Look::rowLineSpacing}, {m_name, m_subtitle, m_meta}));
    // The halo of a button needs room inside the row.
    setContentsMargins(Style::bleed, Style::bleed, Style::bleed, Style::bleed);
    setLayout(
        hstack({.spacing = Look::rowSpacing}, {m_iconButton, stretched(m_textButton), bleeding(m_actions)}));

    for (PlainButton* button : {m_iconButton, m_textButton})
        connect(button, &QAbstractButton::clicked, this,
            [this, &requests] { Q_EMIT requests.sent(request::Open{m_app}); });
}

void AppRow::present(const AppRowContent& content)
{
    m_app = content.actions.app;
    m_icon->present(content.icon);
    m_iconButton->setVisible(!m_icon->image().isNull());
    m_iconButton->setAccessibleName(content.iconAccessibleName);
    m_name->setText(content.name);
    m_subtitle->setText(content.subtitle);
    m_meta->setText(content.meta);
    m_textButton->setAccessibleName(content.textAccessibleName);
    m_actions->present(content.actions);
}

std::array<QWidget*, 4> AppRow::tabStops() const
{
    return {m_iconButton, m_textButton, m_actions->primary(), m_actions->save()};
}
