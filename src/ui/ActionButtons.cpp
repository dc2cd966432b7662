#include "ui/ActionButtons.h"

#include "ui/Look.h"
#include "ui/kit/ProminentButton.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolButton.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

ActionButtons::ActionButtons(Requests& requests, QWidget* parent)
    : QWidget(parent)
    , m_primary(new ProminentButton({}))
    , m_save(new SymbolButton(u"arrow.down.circle"_s, Look::actionSymbol, Style::primaryText()))
{
    setLayout(hstack({.spacing = Look::actionSpacing}, {m_primary, m_save}));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // Hover and ring of the buttons need room inside the group.
    setContentsMargins(Style::bleed, Style::bleed, Style::bleed, Style::bleed);

    connect(m_primary, &QAbstractButton::clicked, this,
        [this, &requests] { Q_EMIT requests.sent(request::Launch{m_app}); });
    connect(m_save, &QAbstractButton::clicked, this,
        [this, &requests] { Q_EMIT requests.sent(request::Save{m_app}); });
}

void ActionButtons::present(const ActionButtonsContent& content)
{
    m_app = content.app;
    m_primary->setText(content.primaryTitle);
    m_save->present(content.busy ? SymbolButton::Activity::Busy : SymbolButton::Activity::Ready);
    m_save->setToolTip(content.saveToolTip);
    m_save->setAccessibleName(content.saveAccessibleName);
}
