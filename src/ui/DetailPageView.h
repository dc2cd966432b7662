#pragma once

#include "ui/Requests.h"
#include "ui/kit/PageScroll.h"
#include "ui/model/DetailPage.h"

class ActionButtons;
class AppIcon;
class FairRow;
class PlainButton;
class ScreenshotView;
class SelectableText;
class TextLabel;

/// The page of one entry. Presenting moves nothing but what has changed.
class DetailPageView : public PageScroll {
    Q_OBJECT

public:
    /// `requests` outlives the page.
    explicit DetailPageView(Requests& requests, QWidget* parent = nullptr);

    void present(const DetailPage& page);

    /// What takes the focus when the page opens.
    QWidget* firstStop() const;

private:
    struct FactLabels {
        TextLabel* caption = nullptr;
        TextLabel* value = nullptr;
    };

    struct Feature {
        QWidget* line = nullptr;
        TextLabel* text = nullptr;
    };

    QLayout* header();
    void presentFacts(const std::vector<Fact>& facts);
    void presentFeatures(const QStringList& features);

    PlainButton* m_back;
    TextLabel* m_backText;
    AppIcon* m_icon;
    TextLabel* m_name;
    TextLabel* m_subtitle;
    TextLabel* m_author;
    ActionButtons* m_actions;
    FairRow* m_factRow;
    std::vector<FactLabels> m_facts;
    TextLabel* m_headline;
    SelectableText* m_description;
    FairRow* m_featureRow;
    std::vector<Feature> m_features;
    ScreenshotView* m_screenshot;
    TextLabel* m_installTitle;
    TextLabel* m_installText;
    TextLabel* m_signingNote;
};
