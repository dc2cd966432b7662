#pragma once

#include "catalog/StoreApp.h"

#include <array>

/// One fact with its caption.
struct Fact {
    QString caption;
    QString value;

    bool operator==(const Fact&) const = default;
};

Fact fact(const QString& caption, const QString& value);

/// The page of one entry, from top to bottom.
struct DetailPage {
    /// The entry itself: its name, icon and buttons head the page.
    StoreApp app;
    QString author;
    std::array<Fact, 4> facts;
    /// The image of the application at work, for the featured application alone. The file may be missing.
    std::optional<Path> screenshot;
    QString installTitle;
    QString installText;
    QString signingNote;

    bool operator==(const DetailPage&) const = default;
};

DetailPage detail(const StoreApp& app);
