#pragma once

#include "ui/model/AppRowContent.h"

#include <vector>

/// One fact with its caption.
struct Fact {
    QString caption;
    QString value;

    /// Read in one piece.
    QString accessibleName() const;
    bool operator==(const Fact&) const = default;
};

Fact fact(const QString& caption, const QString& value);

/// A picture of an application at work. The file may be missing.
struct Screenshot {
    Path file;
    QString accessibleName;

    bool operator==(const Screenshot&) const = default;
};

/// The page of one entry, from top to bottom.
struct DetailPage {
    QString back;
    /// The name of the application whose icon the page shows.
    QString icon;
    QString name;
    QString subtitle;
    QString author;
    ActionButtonsContent actions;
    std::vector<Fact> facts;
    QString headline;
    QString description;
    QString descriptionAccessibleName;
    QStringList features;
    /// For the featured application alone.
    std::optional<Screenshot> screenshot;
    QString installTitle;
    QString installText;
    QString signingNote;

    bool operator==(const DetailPage&) const = default;
};

/// The page of this entry as of now; looks whether it is installed. Main thread.
DetailPage detail(const StoreApp& app, const Store& store);
