// The C library, exact here in both directions.
#include "tests/frame/ReferenceNumbers.h"

#include <cstdio>
#include <cstdlib>

namespace reference {

const int kValues = 300'000;

std::string Fixed(double value, int decimals)
{
    char buffer[512];
    return {buffer, static_cast<std::size_t>(std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value))};
}

std::string General(double value, int digits)
{
    char buffer[64];
    return {buffer, static_cast<std::size_t>(std::snprintf(buffer, sizeof buffer, "%.*g", digits, value))};
}

double ReadDouble(const std::string& text)
{
    return std::strtod(text.c_str(), nullptr);
}

float ReadFloat(const std::string& text)
{
    return std::strtof(text.c_str(), nullptr);
}

} // namespace reference
