#pragma once

#include "store/Store.h"

#include <QWidget>

class ProminentButton;
class SymbolButton;

/// The two buttons of an entry: open or download it, and save its archive.
class ActionButtons : public QWidget {
    Q_OBJECT

public:
    /// `store` outlives the buttons.
    explicit ActionButtons(Store& store, QWidget* parent = nullptr);

    /// Shows what the buttons do for this entry as of now.
    void present(const StoreApp& app);

    ProminentButton* primary() const { return m_primary; }
    SymbolButton* save() const { return m_save; }

private:
    Store& m_store;
    StoreApp m_app;
    ProminentButton* m_primary;
    SymbolButton* m_save;
};
