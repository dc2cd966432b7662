#pragma once

/// Where a text stops being JSON (RFC 8259).
struct JsonFault {
    enum class Kind {
        NotUtf8,
        /// A text is not closed, or holds what it must not.
        Text,
        Number,
        /// Anything else, such as a comma that is missing.
        Structure,
    };

    Kind kind = Kind::Structure;
    /// Counted from 1.
    int line = 1;
};
