#pragma once

#include "ui/model/ViewState.h"

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
/// of that or of the store. Its window title is the page's.
class StoreView : public QWidget {
    Q_OBJECT

public:
    /// `store` outlives the view.
    explicit StoreView(Store& store, QWidget* parent = nullptr);

    /// Looks again at which applications are installed.
    void refresh();
    void focusSearch();
    /// Leaves the page of an entry; in the search field it first empties a search.
    void goBack();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    enum class Scroll { Keep, ToTop };

    QWidget* titleBar();
    DetailPageView& detailPage();
    void choose(const QString& section);
    void search(const QString& text);
    void open(const StoreApp& app);
    void planRebuild();
    void rebuild();
    void showPage();
    void showMessage();

    Store& m_store;
    ViewState m_view;
    bool m_rebuildPlanned = false;
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
