#pragma once

#include "ui/Requests.h"
#include "ui/model/AppRowContent.h"

#include <QWidget>

class ProminentButton;
class SymbolButton;

/// The two buttons of an entry: open or download it, and save its archive.
class ActionButtons : public QWidget {
    Q_OBJECT

public:
    /// `requests` outlives the buttons.
    explicit ActionButtons(Requests& requests, QWidget* parent = nullptr);

    void present(const ActionButtonsContent& content);

    ProminentButton* primary() const { return m_primary; }
    SymbolButton* save() const { return m_save; }

private:
    StoreApp m_app;
    ProminentButton* m_primary;
    SymbolButton* m_save;
};
