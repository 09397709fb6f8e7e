// Any double with any number of decimals against the C library's "%.*f" and "%.*g", and any format against arguments
// that do not suit it.
#include "frame/FormatText.h"
#include "frame/NumberText.h"
#include "fuzz/FuzzInput.h"

#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

bool Same(TextView text, const char* ascii)
{
    return text == Text(ascii, ascii + std::strlen(ascii));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    double value = 0;
    std::uint8_t decimals = 0;
    if (size < sizeof value + 1)
        return 0;
    std::memcpy(&value, data, sizeof value);
    decimals = data[sizeof value];
    data += sizeof value + 1;
    size -= sizeof value + 1;

    if (std::isfinite(value)) {
        char expected[700];
        std::snprintf(expected, sizeof expected, "%.*f", decimals, value);
        Require(Same(FormatFixed(value, decimals), expected));
        std::snprintf(expected, sizeof expected, "%.*g", decimals, value);
        Require(Same(FormatGeneral(value, decimals), expected));
    }

    const InputText input(data, size);
    const TextView format = input.View();
    const OLECHAR* none = nullptr;
    FormatText(format, decimals, OLESTR("text"), -1, none);
    OLECHAR bounded[kMessageUnits];
    FormatMessageText(bounded, format, OLESTR("text"), decimals);
    Require(TextView(bounded).size() < kMessageUnits);
    return 0;
}
