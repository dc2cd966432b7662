#include "ui/DetailPageView.h"

#include "ui/ActionButtons.h"
#include "ui/AppIcon.h"
#include "ui/ScreenshotView.h"
#include "ui/kit/Accessibility.h"
#include "ui/kit/Divider.h"
#include "ui/kit/LabelButton.h"
#include "ui/kit/SelectableText.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

DetailPageView::DetailPageView(Requests& requests, QWidget* parent)
    : PageScroll(parent)
    , m_back(new LabelButton(
          {.style = Style::body, .color = Style::secondaryText(), .symbol = u"chevron.left"_s},
          u"Назад к приложениям"_s))
    , m_icon(new AppIcon(Style::detailIcon))
    , m_name(new TextLabel({.style = Style::detailName, .lines = Lines::Wrapped}))
    , m_subtitle(new TextLabel(
          {.style = Style::detailSubtitle, .color = Style::secondaryText(), .lines = Lines::Wrapped}))
    , m_author(new TextLabel({.style = Style::detailAuthor, .color = Style::secondaryText()}))
    , m_actions(new ActionButtons(requests))
    , m_headline(new TextLabel({.style = Style::headline, .lines = Lines::Wrapped}))
    , m_description(new SelectableText(Style::description, Style::secondaryText(), Style::descriptionExtra))
    , m_featureRow(hstack({.spacing = Style::featureSpacing}, {Spacer()}))
    , m_screenshot(new ScreenshotView)
    , m_installTitle(new TextLabel({.style = Style::instructionTitle, .lines = Lines::Wrapped}))
    , m_installText(new TextLabel({.style = Style::instruction,
          .color = Style::secondaryText(),
          .lines = Lines::Wrapped,
          .extra = Style::instructionExtra}))
    , m_signingNote(new TextLabel(
          {.style = Style::signingNote, .color = Style::secondaryText(), .lines = Lines::Wrapped}))
{
    m_description->setMaximumWidth(Style::descriptionMaxWidth);
    setPage(vstack({.spacing = Style::pageSpacing},
        {
            m_back,
            header(),
            new Divider,
            facts(),
            new Divider,
            m_headline,
            m_description,
            m_featureRow,
            m_screenshot,
            vstack({.margins = {0, Style::instructionTop, 0, 0}}, {m_installTitle}),
            m_installText,
            m_signingNote,
        }));

    connect(
        m_back, &QAbstractButton::clicked, this, [&requests] { Q_EMIT requests.sent(request::GoBack()); });
}

QLayout* DetailPageView::header()
{
    return hstack({.spacing = Style::detailSpacing},
        {
            m_icon,
            stretched(vstack({.spacing = Style::detailLineSpacing},
                {
                    m_name,
                    m_subtitle,
                    m_author,
                    vstack({.margins = {0, Style::detailActionsTop, 0, 0}}, {m_actions}),
                })),
        });
}

QLayout* DetailPageView::facts()
{
    QBoxLayout* const row = hstack({.spacing = Style::factSpacing, .align = Qt::AlignTop}, {});
    for (FactLabels& labels : m_facts) {
        labels.caption = new TextLabel({.style = Style::factCaption, .color = Style::secondaryText()});
        labels.value = new TextLabel({.style = Style::factValue});
        // Read with the value, which carries the caption in its name.
        makeDecorative(*labels.caption);
        append(*row, {vstack({.spacing = Style::factLineSpacing}, {labels.caption, labels.value})},
            Qt::AlignTop);
    }
    append(*row, {Spacer()}, Qt::AlignTop);
    return row;
}

void DetailPageView::present(const DetailPage& page)
{
    m_icon->present(page.icon);
    m_name->setText(page.name);
    m_subtitle->setText(page.subtitle);
    m_author->setText(page.author);
    m_actions->present(page.actions);
    for (std::size_t index = 0; index < m_facts.size(); ++index) {
        const Fact& fact = page.facts[index];
        m_facts[index].caption->setText(fact.caption);
        m_facts[index].value->setText(fact.value);
        m_facts[index].value->setAccessibleName(fact.accessibleName());
    }
    m_headline->setText(page.headline);
    m_description->setAccessibleName(page.descriptionAccessibleName);
    m_description->present(page.description);
    presentFeatures(page.features);
    m_screenshot->present(page.screenshot);
    m_installTitle->setText(page.installTitle);
    m_installText->setText(page.installText);
    m_signingNote->setText(page.signingNote);
}

void DetailPageView::presentFeatures(const QStringList& features)
{
    while (qsizetype(m_features.size()) < features.size()) {
        auto* const label = new TextLabel(
            {.style = Style::feature, .color = Style::secondaryText(), .symbol = u"checkmark"_s});
        m_featureRow->insertWidget(int(m_features.size()), label);
        m_features.push_back(label);
    }
    for (std::size_t index = 0; index < m_features.size(); ++index) {
        const QString text = features.value(qsizetype(index));
        m_features[index]->setText(text);
        m_features[index]->setVisible(qsizetype(index) < features.size());
    }
}

QWidget* DetailPageView::firstStop() const
{
    return m_back;
}
