#include "suite/CodePages.h"

#include <iterator>

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// ---- Windows-1252 ----

/// Characters of the bytes 80 to 9F; all other bytes are their own character. The five bytes without a character stand
/// for the control of the same number, so that every byte survives a round trip.
constexpr OLECHAR kWindows1252[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

unsigned char Windows1252Byte(OLECHAR unit)
{
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF))
        return static_cast<unsigned char>(unit);
    const OLECHAR* const found = std::find(std::begin(kWindows1252), std::end(kWindows1252), unit);
    return found != std::end(kWindows1252) ? static_cast<unsigned char>(0x80 + (found - kWindows1252)) : '?';
}

void EncodeWindows1252(TextView text, ByteBuffer& out)
{
    std::transform(text.begin(), text.end(), out.Extend(text.size()), Windows1252Byte);
}

void DecodeWindows1252(ByteView bytes, Text& text)
{
    text.reserve(text.size() + bytes.size());
    for (const unsigned char byte : bytes)
        text += byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80] : static_cast<OLECHAR>(byte);
}

// ---- UTF-8 ----

constexpr bool IsHighSurrogate(char32_t unit)
{
    return (unit & 0xFFFFFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char32_t unit)
{
    return (unit & 0xFFFFFC00) == 0xDC00;
}

/// Takes one character from `text`, which must not be empty.
char32_t TakeCharacter(TextView& text)
{
    const char32_t first = text[0];
    const bool pair = IsHighSurrogate(first) && text.size() > 1 && IsLowSurrogate(text[1]);
    const char32_t second = pair ? text[1] : 0;
    text.remove_prefix(pair ? 2 : 1);
    if (pair)
        return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
    return IsHighSurrogate(first) || IsLowSurrogate(first) ? kReplacement : first;
}

unsigned char* PutUtf8(char32_t c, unsigned char* out)
{
    const auto tail = [&](int shift) { *out++ = static_cast<unsigned char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        *out++ = static_cast<unsigned char>(c);
    } else if (c < 0x800) {
        *out++ = static_cast<unsigned char>(0xC0 | (c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        *out++ = static_cast<unsigned char>(0xE0 | (c >> 12));
        tail(6);
        tail(0);
    } else {
        *out++ = static_cast<unsigned char>(0xF0 | (c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
    return out;
}

void EncodeUtf8(TextView text, ByteBuffer& out)
{
    constexpr std::size_t kMostBytesOfUnit = 3; // a pair of units takes four
    const std::size_t before = out.Size();
    unsigned char* const begin = out.Extend(text.size() * kMostBytesOfUnit);
    unsigned char* end = begin;
    while (!text.empty())
        end = PutUtf8(TakeCharacter(text), end);
    out.Cut(before + static_cast<std::size_t>(end - begin));
}

void PutUtf16(char32_t c, Text& text)
{
    if (c < 0x10000) {
        text += static_cast<OLECHAR>(c);
    } else {
        text += static_cast<OLECHAR>(0xD7C0 + (c >> 10));
        text += static_cast<OLECHAR>(0xDC00 + (c & 0x3FF));
    }
}

/// How a UTF-8 character goes on behind its first byte.
struct Utf8Lead {
    std::size_t tails;
    char32_t bits;
    unsigned char lowest, highest; // bounds of the first tail: they keep out overlong forms and surrogates
};

constexpr Utf8Lead LeadOf(unsigned char byte)
{
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, byte & 0x1Fu, 0x80, 0xBF};
    if (byte >= 0xE0 && byte <= 0xEF) {
        const unsigned char lowest = byte == 0xE0 ? 0xA0 : 0x80;
        const unsigned char highest = byte == 0xED ? 0x9F : 0xBF;
        return {2, byte & 0x0Fu, lowest, highest};
    }
    if (byte >= 0xF0 && byte <= 0xF4) {
        const unsigned char lowest = byte == 0xF0 ? 0x90 : 0x80;
        const unsigned char highest = byte == 0xF4 ? 0x8F : 0xBF;
        return {3, byte & 0x07u, lowest, highest};
    }
    return {0, 0, 0, 0};
}

/// Takes one character; a broken one is taken up to the byte that breaks it.
char32_t TakeUtf8(ByteView& bytes)
{
    const unsigned char first = bytes[0];
    bytes = bytes.subspan(1);
    if (first < 0x80)
        return first;
    const Utf8Lead lead = LeadOf(first);
    char32_t c = lead.bits;
    for (std::size_t i = 0; i < lead.tails; ++i) {
        const unsigned char lowest = i == 0 ? lead.lowest : 0x80;
        const unsigned char highest = i == 0 ? lead.highest : 0xBF;
        if (bytes.empty() || bytes[0] < lowest || bytes[0] > highest)
            return kReplacement;
        c = (c << 6) | (bytes[0] & 0x3Fu);
        bytes = bytes.subspan(1);
    }
    return lead.tails != 0 ? c : kReplacement;
}

void DecodeUtf8(ByteView bytes, Text& text)
{
    text.reserve(text.size() + bytes.size());
    while (!bytes.empty())
        PutUtf16(TakeUtf8(bytes), text);
}

// ---- 16-bit units ----

void DecodeUtf16(ByteView bytes, Text& text)
{
    const std::size_t before = text.size();
    const std::size_t units = bytes.size() / sizeof(OLECHAR);
    text.resize(before + units);
    if (units != 0)
        std::memcpy(text.data() + before, bytes.data(), units * sizeof(OLECHAR));
}

constexpr unsigned char kMarkUtf16[] = {0xFF, 0xFE};
constexpr unsigned char kMarkUtf8[] = {0xEF, 0xBB, 0xBF};

bool StartsWith(ByteView bytes, ByteView mark)
{
    return bytes.size() >= mark.size() && std::equal(mark.begin(), mark.end(), bytes.begin());
}

} // namespace

void EncodeText(TextView text, LONG codePage, ByteBuffer& out)
{
    switch (codePage) {
    case kCodePageUtf16: out.Append(text.data(), text.size() * sizeof(OLECHAR)); break;
    case kCodePageUtf8: EncodeUtf8(text, out); break;
    default: EncodeWindows1252(text, out); break;
    }
}

void DecodeText(ByteView bytes, LONG codePage, Text& text)
{
    switch (codePage) {
    case kCodePageUtf16: DecodeUtf16(bytes, text); break;
    case kCodePageUtf8: DecodeUtf8(bytes, text); break;
    default: DecodeWindows1252(bytes, text); break;
    }
}

ByteView ByteOrderMark(LONG codePage)
{
    switch (codePage) {
    case kCodePageUtf16: return kMarkUtf16;
    case kCodePageUtf8: return kMarkUtf8;
    default: return {};
    }
}

LONG CodePageOfMark(ByteView bytes)
{
    return StartsWith(bytes, kMarkUtf16) ? kCodePageUtf16 : StartsWith(bytes, kMarkUtf8) ? kCodePageUtf8 : -1;
}

std::size_t FindBytes(ByteView bytes, ByteView pattern, std::size_t step)
{
    if (pattern.empty())
        return bytes.size();
    std::size_t at = 0;
    while (bytes.size() - at >= pattern.size()) {
        const void* const hit = std::memchr(bytes.data() + at, pattern[0], bytes.size() - at - pattern.size() + 1);
        if (!hit)
            break;
        at = static_cast<std::size_t>(static_cast<const unsigned char*>(hit) - bytes.data());
        if (at % step == 0 && std::memcmp(hit, pattern.data(), pattern.size()) == 0)
            return at;
        ++at;
    }
    return bytes.size();
}
