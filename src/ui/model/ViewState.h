#pragma once

#include "store/Store.h"
#include "ui/model/Sections.h"

/// What the user has chosen to see. Lives as long as the window and is kept nowhere.
struct ViewState {
    /// The title of the chosen section.
    QString section = section_title::overview.toString();
    /// What to look for, every space of it included.
    QString search;
    /// Its page is open; without one, that of the section is.
    std::optional<StoreApp> selected;

    /// Shows that section from the start: without a page open, without a search.
    void choose(const QString& sectionTitle);
    /// The overview without a search.
    bool isOverview() const;
    /// The title of the window.
    QString title() const;
};

/// The entries that the catalog page lists, in catalog order: those that match the search and belong to the
/// section, as of now. They lie in the store's catalog.
std::vector<const StoreApp*> filtered(const ViewState& view, const Store& store);
