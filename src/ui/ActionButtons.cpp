#include "ui/ActionButtons.h"

#include "ui/kit/ProminentButton.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolButton.h"
#include "ui/model/AppRowContent.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

ActionButtons::ActionButtons(Store& store, QWidget* parent)
    : QWidget(parent)
    , m_store(store)
    , m_primary(new ProminentButton({}))
    , m_save(new SymbolButton(u"arrow.down.circle"_s, Style::actionSymbol, Style::primaryText()))
{
    setLayout(hstack({.spacing = Style::actionSpacing}, {m_primary, m_save}));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    // The buttons may show another entry before the save panel's event loop ends: the store gets a copy.
    connect(m_primary, &QAbstractButton::clicked, this, [this] { m_store.launch(StoreApp(m_app)); });
    connect(m_save, &QAbstractButton::clicked, this, [this] { m_store.save(StoreApp(m_app)); });
}

void ActionButtons::present(const StoreApp& app)
{
    m_app = app;
    const ActionButtonsContent content = actionButtons(app, m_store);
    m_primary->setText(content.primaryTitle);
    m_save->present(content.busy ? SymbolButton::Activity::Busy : SymbolButton::Activity::Ready);
    m_save->setToolTip(content.saveToolTip);
    m_save->setAccessibleName(content.saveAccessibleName);
}
