#pragma once

#include "ui/Requests.h"
#include "ui/kit/PlainButton.h"
#include "ui/kit/Shapes.h"
#include "ui/model/CatalogPage.h"

class AppIcon;
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
    void drawBackground(QPainter& painter) const;
    void drawShadow(QPainter& painter);

    StoreApp m_target;
    TextLabel* m_slogan;
    TextLabel* m_name;
    TextLabel* m_summary;
    TextLabel* m_action;
    AppIcon* m_icon;
    Shadow m_shadow;
    /// Of which picture the shadow is.
    qint64 m_shadowOwner = 0;
};
