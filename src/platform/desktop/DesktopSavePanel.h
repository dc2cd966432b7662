#pragma once

#include "platform/SavePanel.h"

#include <functional>

class QWidget;

/// The desktop's own file dialog where it has one, else Qt's, which here remembers nothing on disk.
class DesktopSavePanel final : public SavePanel {
public:
    /// `window` names the window that the panel belongs to; it may answer none.
    explicit DesktopSavePanel(std::function<QWidget*()> window);

    std::optional<Path> runModal(const SavePanelSetup& setup) override;

private:
    std::function<QWidget*()> m_window;
};
