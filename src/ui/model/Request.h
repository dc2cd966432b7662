#pragma once

#include "catalog/StoreApp.h"

#include <variant>

/// Everything that a user can ask for in the window; each view sends it, one place answers it.
namespace request {

struct ChooseSection {
    QString title;

    bool operator==(const ChooseSection&) const = default;
};
/// The search field holds this text now.
struct Search {
    QString text;

    bool operator==(const Search&) const = default;
};
/// Show the page of an entry.
struct Open {
    StoreApp app;

    bool operator==(const Open&) const = default;
};
/// Leave the page of an entry.
struct GoBack {
    bool operator==(const GoBack&) const = default;
};
/// Open the installed application, or save its archive where there is none.
struct Launch {
    StoreApp app;

    bool operator==(const Launch&) const = default;
};
struct Save {
    StoreApp app;

    bool operator==(const Save&) const = default;
};
/// Look again at which applications are installed.
struct Refresh {
    bool operator==(const Refresh&) const = default;
};
/// The message has been read.
struct Dismiss {
    bool operator==(const Dismiss&) const = default;
};

} // namespace request

using Request = std::variant<request::ChooseSection, request::Search, request::Open, request::GoBack,
    request::Launch, request::Save, request::Refresh, request::Dismiss>;
