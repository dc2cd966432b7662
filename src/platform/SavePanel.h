#pragma once

#include "platform/Path.h"
#include "platform/Role.h"

#include <optional>

/// What a save panel shows at first.
struct SavePanelSetup {
    QString title;
    /// The file name that the user may keep.
    QString proposedName;
    /// The folder shown first; none leaves the choice to the panel.
    std::optional<Path> folder;

    bool operator==(const SavePanelSetup&) const = default;
};

/// The dialog that asks where to save a ZIP archive. Main thread.
class SavePanel : public Role {
public:
    /// Asks, and returns when the user has answered: the destination, whose name ends in `.zip` and which the
    /// user agreed to replace if it exists; none when the user cancelled. Runs a nested event loop.
    virtual std::optional<Path> runModal(const SavePanelSetup& setup) = 0;
};
