#pragma once

#include "catalog/Catalog.h"
#include "pack/pictures/Pictures.h"
#include "pack/trees/Tree.h"
#include "platform/Failure.h"

/// An entry of a collection with what belongs to it.
struct CollectionEntry {
    StoreApp app;
    Path folder;
    Place place;
    Tree tree{};
    std::optional<PictureFile> icon{};
};

/// A collection that has been read, and what is wrong with it. Only one without errors is complete.
struct Collection {
    std::vector<CollectionEntry> entries;
    std::optional<PictureFile> brand;
    std::optional<PictureFile> screenshot;
    Findings findings;

    Catalog catalog() const;
};

/// Reads the collection in `folder`, whose applications lie in `apps`. Fails when there is none.
Result<Collection> readCollection(const Path& folder, const Path& apps);
