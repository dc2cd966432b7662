#pragma once

#include "catalog/JsonFault.h"

#include <simdjson.h>

#include <optional>
#include <string>
#include <string_view>

/// A text that is to be read as JSON. Any bytes are safe. Throws where memory is short. Belongs to one
/// thread.
class JsonText {
public:
    /// Copies the text.
    explicit JsonText(std::string_view text);

    /// Reads all of it, for the first fault. There is none in JSON with numbers of any size, and with lists
    /// and objects no more than 1,024 deep in one another.
    std::optional<JsonFault> fault();
    /// The value of a text without a fault, to be read from its beginning. Lives until the next call.
    simdjson::ondemand::value value();
    /// The line of a place in the value, counted from 1. Each place lies behind those that were asked for
    /// before.
    int lineOf(const char* place);

private:
    simdjson::error_code open(std::size_t from, std::size_t size);
    JsonFault::Kind cutBrokenLine();

    /// The text as the one element of a list: then simdjson reads any text up to its first fault, also one
    /// that ends too early.
    std::string m_list;
    int m_line = 1;
    std::size_t m_lineEnd = 0;
    simdjson::ondemand::parser m_parser;
    simdjson::ondemand::document m_document;
};
