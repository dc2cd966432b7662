#pragma once

#include "ui/model/AppRowContent.h"
#include "ui/model/ViewState.h"

#include <variant>

/// The line above a page.
struct PageHeader {
    QString title;
    QString subtitle;

    bool operator==(const PageHeader&) const = default;
};

/// The large card of the overview.
struct FeaturedCard {
    QString slogan;
    QString name;
    QString summary;
    QString action;
    QString accessibleName;
    /// The name of the application whose icon the card shows.
    QString icon;
    /// The entry that the card opens; it need not be the application that the card speaks of.
    StoreApp target;

    bool operator==(const FeaturedCard&) const = default;
};

/// What stands in the place of a list without entries.
struct EmptyState {
    QString symbol;
    QString title;
    QString description;

    bool operator==(const EmptyState&) const = default;
};

/// The rows of a page. Each is made by `appRow` when it comes near the view, so that a list costs little
/// however long it is.
struct AppList {
    std::optional<QString> title;
    Selection apps;
    /// Ids of entries whose save runs.
    TextSet busy;

    /// Whether a divider follows the row at this position: not after those with the id of the last one.
    bool hasDivider(std::size_t position) const;

    bool operator==(const AppList&) const = default;
};

/// The page that lists the catalog.
struct CatalogPage {
    PageHeader header;
    std::optional<FeaturedCard> featured;
    std::variant<EmptyState, AppList> body;
    std::optional<QString> footer;

    bool operator==(const CatalogPage&) const = default;
};

/// The page as of now. Main thread.
CatalogPage catalog(const ViewState& view, const Store& store);
