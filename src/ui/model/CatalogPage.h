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

/// The rows of a page. A row is computed when it is asked for, so that a list costs little however long it
/// is. Valid until the store changes.
struct AppList {
    std::optional<QString> title;
    /// They lie in the store's catalog.
    std::vector<const StoreApp*> apps;
    /// The positions in ascending order, but for the last one, after which no divider stands: those of
    /// entries with the id of the last one.
    std::vector<std::size_t> withoutDivider;
    const Store* store = nullptr;

    std::size_t count() const { return apps.size(); }
    /// The row at this position as of now.
    AppRowContent row(std::size_t position) const { return appRow(*apps.at(position), *store); }

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
