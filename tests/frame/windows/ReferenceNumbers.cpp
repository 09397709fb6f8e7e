// The C library of this system rounds otherwise in places; the C++ library's conversions are exact.
#include "tests/frame/ReferenceNumbers.h"

#include <charconv>

namespace reference {

const int kValues = 50'000;

std::string Fixed(double value, int decimals)
{
    char buffer[512];
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals).ptr};
}

std::string General(double value, int digits)
{
    char buffer[64];
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits).ptr};
}

double ReadDouble(const std::string& text)
{
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

float ReadFloat(const std::string& text)
{
    float value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

} // namespace reference
