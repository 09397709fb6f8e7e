#include "platform/system/Utf8.h"

namespace {

constexpr char32_t kReplacement = 0xFFFD;

constexpr bool IsHighSurrogate(char32_t c)
{
    return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool IsLowSurrogate(char32_t c)
{
    return c >= 0xDC00 && c <= 0xDFFF;
}

void AppendUtf8(std::string& out, char32_t c)
{
    const auto tail = [c](int shift) { return static_cast<char>(0x80 | (c >> shift & 0x3F)); };
    if (c < 0x80)
        out += static_cast<char>(c);
    else if (c < 0x800)
        out += {static_cast<char>(0xC0 | c >> 6), tail(0)};
    else if (c < 0x10000)
        out += {static_cast<char>(0xE0 | c >> 12), tail(6), tail(0)};
    else
        out += {static_cast<char>(0xF0 | c >> 18), tail(12), tail(6), tail(0)};
}

void AppendUtf16(Text& out, char32_t c)
{
    if (c >= 0x10000) {
        out += static_cast<OLECHAR>(0xD7C0 + (c >> 10));
        out += static_cast<OLECHAR>(0xDC00 | (c & 0x3FF));
    } else {
        out += static_cast<OLECHAR>(c);
    }
}

struct Decoded {
    char32_t character;
    std::size_t bytes;
};

/// Reads one character from the front of a text that is not empty; a malformed one takes one byte.
Decoded Decode(std::string_view bytes)
{
    constexpr Decoded kMalformed{kReplacement, 1};
    const auto at = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = at(0);
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length)
        return kMalformed;
    char32_t c = static_cast<char32_t>(lead & (0xFF >> (length + 1)));
    for (std::size_t i = 1; i < length; ++i) {
        if ((at(i) & 0xC0) != 0x80)
            return kMalformed;
        c = c << 6 | (at(i) & 0x3Fu);
    }
    const char32_t least = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
    const bool isSurrogate = c >= 0xD800 && c <= 0xDFFF;
    return c < least || c > 0x10FFFF || isSurrogate ? kMalformed : Decoded{c, length};
}

} // namespace

std::string Utf8From(TextView text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = static_cast<char16_t>(text[i]);
        if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(static_cast<char16_t>(text[i + 1])))
            c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<char16_t>(text[++i]) - 0xDC00u);
        else if (IsHighSurrogate(c) || IsLowSurrogate(c))
            c = kReplacement;
        AppendUtf8(out, c);
    }
    return out;
}

Text TextFromUtf8(std::string_view bytes)
{
    Text out;
    out.reserve(bytes.size());
    while (!bytes.empty()) {
        const Decoded next = Decode(bytes);
        AppendUtf16(out, next.character);
        bytes.remove_prefix(next.bytes);
    }
    return out;
}
