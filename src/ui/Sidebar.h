#pragma once

#include "ui/Requests.h"
#include "ui/model/WindowContent.h"

#include <QWidget>

class QLabel;
class SearchField;
class SectionButton;
class TextLabel;

/// The left column: brand, search, sections, maker. Its window icon is the brand image.
class Sidebar : public QWidget {
    Q_OBJECT

public:
    /// `requests` outlives the sidebar.
    explicit Sidebar(Requests& requests, QWidget* parent = nullptr);

    void present(const SidebarContent& content);
    void focusSearch();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QLayout* brand();
    QLayout* sectionList(Requests& requests);
    QLayout* maker();
    void presentBrandImage(const Path& file);

    QLabel* m_brandImage;
    Path m_brandFile;
    TextLabel* m_brandName;
    SearchField* m_search;
    std::array<SectionButton*, sectionCount> m_sections{};
    TextLabel* m_maker;
    TextLabel* m_makerNote;
};
