#pragma once

#include "ui/Requests.h"
#include "ui/kit/PlainButton.h"
#include "ui/model/CatalogPage.h"

class AppIcon;
class QGraphicsDropShadowEffect;
class TextLabel;

/// The large card of the overview, on a colour that runs from its top leading to its bottom trailing corner.
class FeaturedCardView : public PlainButton {
    Q_OBJECT

public:
    /// `requests` outlives the card.
    explicit FeaturedCardView(Requests& requests, QWidget* parent = nullptr);

    void present(const FeaturedCard& card);

protected:
    void paintEvent(QPaintEvent* event) override;
    ButtonShape shape() const override;

private:
    StoreApp m_target;
    TextLabel* m_slogan;
    TextLabel* m_name;
    TextLabel* m_summary;
    TextLabel* m_action;
    AppIcon* m_icon;
    QGraphicsDropShadowEffect* m_shadow;
};
