#pragma once

#include "ui/Requests.h"
#include "ui/kit/PageScroll.h"
#include "ui/model/CatalogPage.h"

class AppRowList;
class EmptyStateView;
class FeaturedCardView;
class TextLabel;

/// The page that lists the catalog. Presenting moves nothing but what has changed.
class CatalogPageView : public PageScroll {
    Q_OBJECT

public:
    /// `requests` outlives the page.
    explicit CatalogPageView(Requests& requests, QWidget* parent = nullptr);

    void present(const CatalogPage& page);

private:
    void showRowsInView();

    TextLabel* m_title;
    TextLabel* m_subtitle;
    FeaturedCardView* m_featured;
    EmptyStateView* m_empty;
    TextLabel* m_listTitle;
    AppRowList* m_rows;
    QWidget* m_footer;
    TextLabel* m_footerText;
};
