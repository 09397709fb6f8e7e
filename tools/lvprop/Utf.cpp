#include "tools/lvprop/Utf.h"

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

/// Bytes that a character with this first byte takes, 0 for a byte that can't be first.
size_t SequenceLength(unsigned char first)
{
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first < 0xE0)
        return 2;
    if (first >= 0xE0 && first < 0xF0)
        return 3;
    if (first >= 0xF0 && first < 0xF5)
        return 4;
    return 0;
}

/// Over-long forms, surrogates and numbers past U+10FFFF are no characters.
bool IsScalarOfLength(char32_t codePoint, size_t length)
{
    if (codePoint > 0x10FFFF || IsHighSurrogate(codePoint) || IsLowSurrogate(codePoint))
        return false;
    return Utf8LengthOf(codePoint) == length;
}

} // namespace

size_t Utf8LengthOf(char32_t codePoint)
{
    return codePoint < 0x80 ? 1 : codePoint < 0x800 ? 2 : codePoint < 0x10000 ? 3 : 4;
}

Utf8Character CharacterAt(std::string_view utf8, size_t offset)
{
    const auto byteAt = [&](size_t i) { return static_cast<unsigned char>(utf8[i]); };
    const size_t length = SequenceLength(byteAt(offset));
    if (length == 1)
        return {byteAt(offset), 1};
    if (length == 0 || offset + length > utf8.size())
        return {kReplacement, 1};

    char32_t codePoint = byteAt(offset) & (0x7Fu >> length);
    for (size_t i = 1; i < length; ++i) {
        const unsigned char next = byteAt(offset + i);
        if ((next & 0xC0) != 0x80)
            return {kReplacement, 1};
        codePoint = (codePoint << 6) | (next & 0x3Fu);
    }
    return IsScalarOfLength(codePoint, length) ? Utf8Character{codePoint, length} : Utf8Character{kReplacement, 1};
}

void AppendUtf16(Text& text, char32_t codePoint)
{
    if (codePoint < 0x10000) {
        text.push_back(static_cast<OLECHAR>(codePoint));
        return;
    }
    const char32_t rest = codePoint - 0x10000;
    text.push_back(static_cast<OLECHAR>(0xD800 + (rest >> 10)));
    text.push_back(static_cast<OLECHAR>(0xDC00 + (rest & 0x3FF)));
}

void AppendUtf8(std::string& utf8, char32_t codePoint)
{
    const auto append = [&](char32_t unit) { utf8.push_back(static_cast<char>(static_cast<unsigned char>(unit))); };
    switch (Utf8LengthOf(codePoint)) {
    case 1: append(codePoint); return;
    case 2: append(0xC0 | (codePoint >> 6)); break;
    case 3:
        append(0xE0 | (codePoint >> 12));
        append(0x80 | ((codePoint >> 6) & 0x3F));
        break;
    default:
        append(0xF0 | (codePoint >> 18));
        append(0x80 | ((codePoint >> 12) & 0x3F));
        append(0x80 | ((codePoint >> 6) & 0x3F));
    }
    append(0x80 | (codePoint & 0x3F));
}

Text ToText(std::string_view utf8)
{
    Text text;
    text.reserve(utf8.size());
    for (size_t at = 0; at < utf8.size();) {
        const Utf8Character character = CharacterAt(utf8, at);
        AppendUtf16(text, character.codePoint);
        at += character.length;
    }
    return text;
}

std::string ToUtf8(TextView text)
{
    std::string utf8;
    utf8.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t codePoint = static_cast<char16_t>(text[i]);
        if (IsHighSurrogate(codePoint) && i + 1 < text.size() && IsLowSurrogate(static_cast<char16_t>(text[i + 1])))
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (static_cast<char16_t>(text[++i]) - 0xDC00u);
        else if (IsHighSurrogate(codePoint) || IsLowSurrogate(codePoint))
            codePoint = kReplacement;
        AppendUtf8(utf8, codePoint);
    }
    return utf8;
}
