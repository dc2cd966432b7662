#pragma once

#include <QString>

#include <tl/expected.hpp>

/// A value, or one English line for the maker of the collection that says why there is none.
template <class T>
using Outcome = tl::expected<T, QString>;
