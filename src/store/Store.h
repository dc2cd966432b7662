#pragma once

#include "catalog/Catalog.h"
#include "platform/Text.h"
#include "store/Published.h"

/// Everything that the window shows of the catalog, and the two things that a user does with it. One per
/// process; lives on the main thread, holds no lock.
class Store final : public ObservableObject {
    Q_OBJECT

public:
    /// Loads the catalog. When that fails, `apps` stays empty and `message` says why.
    Store();

    /// The catalog in the order of its file. Never changes after the creation.
    Published<Catalog> apps{*this};
    /// What the user is to be told next; a newer message replaces one that waits.
    Published<std::optional<QString>> message{*this};
    /// The ids of the entries whose archive is being saved.
    Published<TextSet> busy{*this};
    /// The ids of the entries whose archive was saved in this run.
    Published<TextSet> saved{*this};
    /// Has no meaning of its own: a change of it makes every view look at the machine again.
    Published<qint64> revision{*this, 0};

    /// What a search looks in, in the order of `apps`. Made at the first call: folding every text is too dear
    /// for the start and for a keystroke.
    const std::vector<SearchText>& searchTexts() const;

    /// Opens the installed application, or saves the archive of one that is not installed. A failure to open
    /// becomes the message, later.
    void launch(StoreApp app);
    /// Asks where to save the archive and saves it in the background; the outcome becomes the message. Does
    /// nothing while that entry is being saved. Runs the save panel's nested event loop, which outlives what
    /// the caller shows: hence the entry by value, here and in `launch`.
    void save(StoreApp app);

Q_SIGNALS:
    /// A save or an opening has failed; `message` says why.
    void failed();

private:
    void finishSaving(const StoreApp& app, const Path& destination, const Result<void>& outcome);

    mutable std::vector<SearchText> m_searchTexts;
};
