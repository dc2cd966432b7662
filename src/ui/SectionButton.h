#pragma once

#include "ui/kit/PlainButton.h"
#include "ui/model/WindowContent.h"

class SymbolView;
class TextLabel;

/// The button of one section in the sidebar. The chosen one is checked, which only the page's state decides.
class SectionButton : public PlainButton {
    Q_OBJECT

public:
    explicit SectionButton(const Section& section, QWidget* parent = nullptr);

    void present(const SectionItem& item);

protected:
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;
    ButtonShape shape() const override;

private:
    SymbolView* m_symbol;
    TextLabel* m_label;
};
