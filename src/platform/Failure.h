#pragma once

#include <QString>

#include <tl/expected.hpp>

/// Why an operation failed.
struct Failure {
    /// Who reports it: `systemDomain` for the operating system, otherwise the reporter's own name.
    QString domain;
    /// Which failure it is, in the domain's own numbering.
    int code = 0;
    /// One Russian sentence for the user, with its full stop.
    QString localizedDescription;

    bool operator==(const Failure&) const = default;
};

/// A value, or why there is none.
template <class T>
using Result = tl::expected<T, Failure>;

/// The domain whose codes are the system's error numbers (`errno`).
inline constexpr QLatin1StringView systemDomain("System");

/// The failure of an operation on a file or a program that ended with this error number (`errno`).
Failure systemFailure(int errorNumber);
