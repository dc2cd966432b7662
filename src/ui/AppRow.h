#pragma once

#include "ui/Requests.h"
#include "ui/model/AppRowContent.h"

#include <QWidget>

#include <array>

class ActionButtons;
class AppIcon;
class PlainButton;
class TextLabel;

/// One entry in a list: its icon and its texts, which open its page, and its buttons.
class AppRow : public QWidget {
    Q_OBJECT

public:
    /// `requests` outlives the row.
    explicit AppRow(Requests& requests, QWidget* parent = nullptr);

    void present(const AppRowContent& content);

    /// What the Tab key visits, in reading order.
    std::array<QWidget*, 4> tabStops() const;

private:
    StoreApp m_app;
    AppIcon* m_icon;
    PlainButton* m_iconButton;
    PlainButton* m_textButton;
    TextLabel* m_name;
    TextLabel* m_subtitle;
    TextLabel* m_meta;
    ActionButtons* m_actions;
};
