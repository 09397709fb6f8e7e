// UTF-8, the encoding of files and of the terminal, against the 16-bit text of the interfaces.
#pragma once

#include "platform/com/Ole.h"

#include <string>
#include <string_view>

/// Each byte that is part of no character becomes one U+FFFD.
Text ToText(std::string_view utf8);

/// A surrogate without its partner becomes U+FFFD.
std::string ToUtf8(TextView text);

/// One character of UTF-8 text: its code point and the bytes it takes; a bad byte is U+FFFD of length 1.
struct Utf8Character {
    char32_t codePoint = 0;
    size_t length = 0;
};
Utf8Character CharacterAt(std::string_view utf8, size_t offset);

/// Number of bytes that a code point takes in UTF-8.
size_t Utf8LengthOf(char32_t codePoint);

void AppendUtf16(Text& text, char32_t codePoint);
void AppendUtf8(std::string& utf8, char32_t codePoint);
