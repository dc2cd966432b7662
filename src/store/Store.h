#pragma once

#include "catalog/Catalog.h"
#include "platform/Text.h"
#include "store/Published.h"

#include <vector>

/// The state behind the window, and what a user does with it. There is one; only the main thread touches it.
class Store final : public ObservableObject {
    Q_OBJECT

public:
    /// Loads the catalog. When that fails, `apps` stays empty and `message` says why.
    Store();

    /// The entries, in the order in which the file lists them; set while the store is made.
    Published<Catalog> apps{*this};
    /// A sentence for the user, until it has been read. There is no queue.
    Published<std::optional<QString>> message{*this};
    /// Ids: a save of these runs.
    Published<TextSet> busy{*this};
    /// Ids: these have been saved since the program started.
    Published<TextSet> saved{*this};
    /// Written to make every page look at the machine again; its value says nothing.
    Published<qint64> revision{*this, 0};

    /// What a search looks in, in the order of `apps`. Made at the first call: folding every text is too dear
    /// for the start.
    const std::vector<SearchText>& searchTexts() const;

    /// Opens the installed application, or saves the archive of one that is not installed. A failure to open
    /// becomes the message, later.
    void launch(StoreApp app);
    /// Asks where to save the archive and saves it in the background; the outcome becomes the message. Does
    /// nothing while that entry is being saved. Runs the save panel's nested event loop, which outlives what
    /// the caller shows: hence the entry by value, here and in `launch`.
    void save(StoreApp app);
    /// Whether a save or an opening runs, which may still fail.
    bool isWorking() const { return m_openings > 0 || !busy->empty(); }

Q_SIGNALS:
    /// A save or an opening has failed; `message` says why.
    void failed();
    /// A save or an opening has ended, well or not.
    void finished();

private:
    void finishOpening(const QString& name, const Result<void>& outcome);
    void finishSaving(const StoreApp& app, const Path& destination, const Result<void>& outcome);

    mutable std::vector<SearchText> m_searchTexts;
    int m_openings = 0;
};
