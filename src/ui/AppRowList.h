#pragma once

#include "ui/Requests.h"
#include "ui/model/CatalogPage.h"

#include <QWidget>

#include <functional>
#include <map>

class AppRow;

/// The rows of a list with the dividers between them. As high as the whole list, but only the rows in view, a
/// few around them and the one with the focus exist; the others are made when they come near.
class AppRowList : public QWidget {
    Q_OBJECT

public:
    /// `requests` outlives the list.
    explicit AppRowList(Requests& requests, QWidget* parent = nullptr);

    /// Shows these rows as of now.
    void present(const AppList& list);
    /// Says which part of the list, in its own coordinates, is in view.
    void setView(int top, int bottom);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The list lies elsewhere now; its view may have changed.
    void placed();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// By the entry's place in the catalog, whose order every list has; the last one first.
    using Rows = std::map<qsizetype, AppRow*, std::greater<>>;

    void arrange();
    void showInOrder();
    Rows rowsToKeep(std::size_t first, std::size_t end);
    AppRow* takeRow();
    void placeRows();
    std::size_t positionAt(int y) const;

    Requests& m_requests;
    AppList m_list;
    /// With the margins in which the halo of a button is drawn.
    int m_rowHeight = 0;
    /// Where each row begins.
    std::vector<int> m_tops;
    int m_viewTop = 0;
    int m_viewBottom = 0;
    Rows m_rows;
    std::vector<AppRow*> m_spare;
};
