// How the tool writes JSON: two blanks of indent, and lists of plain values on one line, so that points and rows of
// numbers stay readable and a difference shows up in the line of its value.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

using Json = nlohmann::ordered_json;

/// Ends with a line end. Text that is no UTF-8 is written with U+FFFD in place of its bad bytes.
std::string FormatJson(const Json& json);
