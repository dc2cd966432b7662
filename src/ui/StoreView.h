#pragma once

#include "ui/Requests.h"
#include "ui/model/WindowContent.h"

#include <QPointer>
#include <QWidget>

class CatalogPageView;
class DetailPageView;
class MessageSheet;
class QStackedWidget;
class Sidebar;
class SymbolButton;
class TextLabel;

/// The root view of the window: it owns what the user has chosen to see, and shows it anew after every change
/// of that or of the store. Its window title is the page's, its window icon the brand
/// image.
class StoreView : public QWidget {
    Q_OBJECT

public:
    /// `store` outlives the view.
    explicit StoreView(Store& store, QWidget* parent = nullptr);

    /// Does what the user asks for. While a message or the save panel covers the window, only its dismissal
    /// and a refresh are answered.
    void answer(const Request& request);
    void focusSearch();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* titleBar();
    DetailPageView& detailPage();
    void doWhat(const request::ChooseSection& asked);
    void doWhat(const request::Search& asked);
    void doWhat(const request::Open& asked);
    void doWhat(const request::GoBack& asked);
    void doWhat(const request::Launch& asked);
    void doWhat(const request::Save& asked);
    void doWhat(const request::Refresh& asked);
    void doWhat(const request::Dismiss& asked);
    void dropFocus();
    void planRebuild();
    void rebuild();
    void present(const CatalogPage& page);
    void present(const DetailPage& page);
    void present(const std::optional<Message>& message);

    Store& m_store;
    ViewState m_view;
    Requests m_requests;
    bool m_rebuildPlanned = false;
    /// The save panel's event loop runs inside an answer.
    bool m_isAnswering = false;
    Sidebar* m_sidebar;
    TextLabel* m_title;
    SymbolButton* m_refresh;
    QStackedWidget* m_pages;
    CatalogPageView* m_catalog;
    DetailPageView* m_detail = nullptr;
    MessageSheet* m_sheet = nullptr;
    /// Whoever had the focus when the page of an entry opened.
    QPointer<QWidget> m_opener;
};
