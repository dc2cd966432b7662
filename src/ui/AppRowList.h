#pragma once

#include "ui/model/CatalogPage.h"

#include <QWidget>

#include <map>

class AppRow;

/// The rows of a list with the dividers between them. As high as the whole list, but only the rows in view, a
/// few around them and the one with the focus exist; the others are made when they come near.
class AppRowList : public QWidget {
    Q_OBJECT

public:
    /// `store` outlives the list.
    explicit AppRowList(Store& store, QWidget* parent = nullptr);

    /// Shows these entries, which lie in the store's catalog, as of now.
    void present(const AppList& list);
    /// Says which part of the list, in its own coordinates, is in view.
    void setView(int top, int bottom);

    QSize sizeHint() const override;

Q_SIGNALS:
    void opened(const StoreApp& app);
    /// The list lies elsewhere now; its view may have changed.
    void placed();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    using Rows = std::map<const StoreApp*, AppRow*>;

    void arrange();
    Rows rowsToKeep(std::size_t first, std::size_t end);
    AppRow* takeRow();
    int pitch() const;

    Store& m_store;
    AppList m_list;
    /// With the margins in which the halo of a button is drawn.
    int m_rowHeight = 0;
    int m_viewTop = 0;
    int m_viewBottom = 0;
    Rows m_rows;
    std::vector<AppRow*> m_spare;
};
