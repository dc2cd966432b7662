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

/// Some entries of a catalog, in its order.
struct Selection {
    Catalog catalog;
    /// Where they stand in the catalog, in ascending order.
    std::vector<qsizetype> places;

    std::size_t size() const { return places.size(); }
    const StoreApp& operator[](std::size_t position) const { return catalog.at(places.at(position)); }

    bool operator==(const Selection&) const = default;
};

/// The entries that the catalog page lists, as of now: those that match the search and belong to the section.
Selection filtered(const ViewState& view, const Store& store);
