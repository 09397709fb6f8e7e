// What number text and number scanning are compared with, value by value. The body differs by system: the C library
// where it is exact, the C++ library's conversions where it is not.
#pragma once

#include <string>

namespace reference {

/// How many random values of each family are compared.
extern const int kValues;

std::string Fixed(double value, int decimals); ///< "%.*f"
std::string General(double value, int digits); ///< "%.*g"
double ReadDouble(const std::string& text);
float ReadFloat(const std::string& text);

} // namespace reference
