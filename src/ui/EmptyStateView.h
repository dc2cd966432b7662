#pragma once

#include "ui/model/CatalogPage.h"

#include <QWidget>

class SymbolView;
class TextLabel;

/// What a page says when it has nothing to list.
class EmptyStateView : public QWidget {
    Q_OBJECT

public:
    explicit EmptyStateView(QWidget* parent = nullptr);

    void present(const EmptyState& state);

private:
    SymbolView* m_symbol;
    TextLabel* m_title;
    TextLabel* m_description;
};
