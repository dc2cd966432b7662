#pragma once

#include "pack/bundles/Source.h"
#include "pack/findings/Report.h"

#include <optional>

/// What the tool does. Each writes to standard output and returns the exit status, or fails when something
/// cannot be read or written.

/// Makes a collection with one entry for each application, copies of them and their icons. `collection` must
/// not exist.
Result<int> makeCollection(const Path& collection, const std::vector<Path>& apps);

/// Makes a bundle of a program or a script. A bundle of the same identifier is replaced.
Result<int> makeBundle(const SourceOrder& order, const Path& bundle, Format format);

/// Tells what is wrong with a collection or a store.
Result<int> check(const Path& subject, const std::optional<Path>& apps, const Reporting& reporting);

struct PackOrder {
    Path collection;
    Path store;
    Path apps;
    /// The bundle that program, window module and Info.plist are taken from.
    Path program;
};
/// Packs a collection without errors into a store, which is proved before it takes its place.
Result<int> pack(const PackOrder& order, const Reporting& reporting);

/// Tells what differs between two stores.
Result<int> diff(const Path& before, const Path& after, Format format);

/// Writes a line that `sha256sum -c` reads for every file of a store.
Result<int> sums(const Path& store);
