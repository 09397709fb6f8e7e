#include "platform/system/Windows1252.h"

#include <algorithm>
#include <array>

namespace {

// Bytes 80 to 9F; all others have the number of their character.
constexpr std::array<char16_t, 32> kMiddle = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char ByteOf(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    const auto found = std::ranges::find(kMiddle, c);
    return found == kMiddle.end() ? '?' : static_cast<char>(0x80 + (found - kMiddle.begin()));
}

OLECHAR CharacterOf(unsigned char byte)
{
    return static_cast<OLECHAR>(byte >= 0x80 && byte < 0xA0 ? kMiddle[byte - 0x80u] : byte);
}

} // namespace

std::string Windows1252From(TextView text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<char16_t>(text[i]);
        const bool startsPair = c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size() &&
                                static_cast<char16_t>(text[i + 1]) >= 0xDC00 &&
                                static_cast<char16_t>(text[i + 1]) <= 0xDFFF;
        if (startsPair)
            ++i;
        out += ByteOf(c);
    }
    return out;
}

Text TextFromWindows1252(std::string_view bytes)
{
    Text out(bytes.size(), 0);
    std::ranges::transform(bytes, out.begin(), [](char c) { return CharacterOf(static_cast<unsigned char>(c)); });
    return out;
}
