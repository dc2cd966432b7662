#pragma once

#include "ui/model/ViewState.h"

#include <QWidget>

class SearchField;
class SectionButton;

/// The left column: brand, search, sections, maker.
class Sidebar : public QWidget {
    Q_OBJECT

public:
    explicit Sidebar(QWidget* parent = nullptr);

    void present(const ViewState& view);
    void focusSearch();

Q_SIGNALS:
    void sectionChosen(const QString& title);
    void searchEdited(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    SearchField* m_search;
    std::vector<SectionButton*> m_sections;
};
