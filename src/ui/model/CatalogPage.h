#pragma once

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

/// The entries of a page, which lie in the store's catalog.
struct AppList {
    std::optional<QString> title;
    std::vector<const StoreApp*> apps;

    /// Whether a divider follows the entry at `index`.
    bool hasDivider(std::size_t index) const;
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

CatalogPage catalog(const ViewState& view, const Store& store);
