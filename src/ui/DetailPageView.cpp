#include "ui/DetailPageView.h"

#include "ui/ActionButtons.h"
#include "ui/AppIcon.h"
#include "ui/Look.h"
#include "ui/ScreenshotView.h"
#include "ui/kit/Accessibility.h"
#include "ui/kit/Divider.h"
#include "ui/kit/FairRow.h"
#include "ui/kit/PlainButton.h"
#include "ui/kit/SelectableText.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/SymbolView.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

DetailPageView::DetailPageView(Requests& requests, QWidget* parent)
    : PageScroll(parent)
    , m_back(new PlainButton)
    , m_backText(new TextLabel({.color = Style::secondaryText()}))
    , m_icon(new AppIcon(Look::detailIcon))
    , m_name(new TextLabel({.style = Look::detailName, .lines = Lines::Wrapped, .heading = true}))
    , m_subtitle(new TextLabel(
          {.style = Look::detailSubtitle, .color = Style::secondaryText(), .lines = Lines::Wrapped}))
    , m_author(new TextLabel({.style = Look::detailAuthor, .color = Style::secondaryText()}))
    , m_actions(new ActionButtons(requests))
    , m_factRow(new FairRow(Look::factSpacing))
    , m_headline(new TextLabel({.style = Look::headline, .lines = Lines::Wrapped, .heading = true}))
    , m_description(new SelectableText(Look::description, Style::secondaryText(), Look::descriptionExtra))
    , m_featureRow(new FairRow(Look::featureSpacing, Qt::AlignVCenter))
    , m_screenshot(new ScreenshotView)
    , m_installTitle(
          new TextLabel({.style = Look::instructionTitle, .lines = Lines::Wrapped, .heading = true}))
    , m_installText(new TextLabel({.style = Look::instruction,
          .color = Style::secondaryText(),
          .lines = Lines::Wrapped,
          .extra = Look::instructionExtra}))
    , m_signingNote(new TextLabel(
          {.style = Look::signingNote, .color = Style::secondaryText(), .lines = Lines::Wrapped}))
{
    m_back->setContent(
        symbolBefore(new SymbolView(u"chevron.left"_s, Style::symbolFor(Style::body), Style::secondaryText()),
            m_backText));
    // Widgets are read in the order of their making: those of the facts and features are made later, inside
    // these.
    auto* const facts = new QWidget;
    facts->setLayout(m_factRow);
    auto* const features = new QWidget;
    features->setLayout(m_featureRow);
    m_description->setMaximumWidth(Look::descriptionMaxWidth);
    setPage(vstack({.spacing = Look::pageSpacing},
        {
            m_back,
            header(),
            new Divider,
            facts,
            new Divider,
            m_headline,
            m_description,
            features,
            m_screenshot,
            vstack({.margins = {0, Look::instructionTop, 0, 0}}, {m_installTitle}),
            m_installText,
            m_signingNote,
        }));

    connect(
        m_back, &QAbstractButton::clicked, this, [&requests] { Q_EMIT requests.sent(request::GoBack()); });
}

QLayout* DetailPageView::header()
{
    return hstack({.spacing = Look::detailSpacing},
        {
            m_icon,
            stretched(vstack({.spacing = Look::detailLineSpacing},
                {
                    m_name,
                    m_subtitle,
                    m_author,
                    vstack({.margins = {0, Look::detailActionsTop, 0, 0}}, {bleeding(m_actions)}),
                })),
        });
}

void DetailPageView::present(const DetailPage& page)
{
    m_back->setAccessibleName(page.back);
    m_backText->setText(page.back);
    m_icon->present(page.icon);
    m_name->setText(page.name);
    m_subtitle->setText(page.subtitle);
    m_author->setText(page.author);
    m_actions->present(page.actions);
    presentFacts(page.facts);
    m_headline->setText(page.headline);
    m_description->setAccessibleName(page.descriptionAccessibleName);
    m_description->present(page.description);
    presentFeatures(page.features);
    m_screenshot->present(page.screenshot);
    m_installTitle->setText(page.installTitle);
    m_installText->setText(page.installText);
    m_signingNote->setText(page.signingNote);
}

/// Every entry's page has the same facts.
void DetailPageView::presentFacts(const std::vector<Fact>& facts)
{
    for (std::size_t index = 0; index < facts.size(); ++index) {
        if (index == m_facts.size()) {
            auto* const caption = new TextLabel(
                {.style = Look::factCaption, .color = Style::secondaryText(), .lines = Lines::Whole});
            auto* const value = new TextLabel({.style = Look::factValue, .lines = Lines::Wrapped});
            // Read with the value, which carries the caption in its name.
            makeDecorative(*caption);
            auto* const fact = new QWidget;
            fact->setLayout(vstack({.spacing = Look::factLineSpacing}, {caption, value}));
            m_factRow->addWidget(fact);
            m_facts.push_back({caption, value});
        }
        m_facts[index].caption->setText(facts[index].caption);
        m_facts[index].value->setText(facts[index].value);
        m_facts[index].value->setAccessibleName(facts[index].accessibleName());
    }
}

void DetailPageView::presentFeatures(const QStringList& features)
{
    while (qsizetype(m_features.size()) < features.size()) {
        auto* const line = new QWidget;
        auto* const text =
            new TextLabel({.style = Look::feature, .color = Style::secondaryText(), .lines = Lines::Wrapped});
        line->setLayout(symbolBefore(
            new SymbolView(u"checkmark"_s, Style::symbolFor(Look::feature), Style::secondaryText()), text));
        m_featureRow->addWidget(line);
        m_features.push_back({line, text});
    }
    for (std::size_t index = 0; index < m_features.size(); ++index) {
        TextLabel& text = *m_features[index].text;
        text.setText(features.value(qsizetype(index)));
        text.setMinimumWidth(qMin(int(Look::featureMinWidth), text.sizeHint().width()));
        m_features[index].line->setVisible(qsizetype(index) < features.size());
    }
}

QWidget* DetailPageView::firstStop() const
{
    return m_back;
}
