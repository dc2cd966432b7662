#pragma once

#include "ui/kit/PlainButton.h"
#include "ui/model/Sections.h"

class TextLabel;

/// The button of one section in the sidebar. The chosen one is checked, which only the page's state decides.
class SectionButton : public PlainButton {
    Q_OBJECT

public:
    explicit SectionButton(const Section& section, QWidget* parent = nullptr);

    void present(const QString& chosenSection);

protected:
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_section;
    TextLabel* m_label;
};
