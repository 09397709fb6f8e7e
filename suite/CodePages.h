// The encodings of text streams: 0 (the system's own narrow code page), 1200 (16-bit units, little-endian), 1252 and
// 65001 (UTF-8). What an encoding can't express becomes its replacement character, so nothing here fails.
#pragma once

#include "platform/com/Ole.h"
#include "suite/ByteBuffer.h"

inline constexpr LONG kCodePageSystem = 0;
inline constexpr LONG kCodePageUtf16 = 1200;
inline constexpr LONG kCodePageWindows1252 = 1252;
inline constexpr LONG kCodePageUtf8 = 65001;

inline constexpr LONG kStreamCodePages[] = {kCodePageSystem, kCodePageUtf16, kCodePageWindows1252, kCodePageUtf8};

/// Appends `text` to `out`. A character that the code page lacks becomes "?", a lone surrogate in UTF-8 U+FFFD.
void EncodeText(TextView text, LONG codePage, ByteBuffer& out);

/// Appends the text of `bytes` to `text`. Bytes that are no character become U+FFFD; half a 16-bit unit at the end is
/// left out.
void DecodeText(ByteView bytes, LONG codePage, Text& text);

/// The byte-order mark that opens a file in this encoding; empty for the narrow ones.
ByteView ByteOrderMark(LONG codePage);

/// The code page whose mark opens `bytes`, or -1.
LONG CodePageOfMark(ByteView bytes);

/// Offset of the first `pattern` in `bytes` that begins at a multiple of `step`; the size of `bytes` when there is none
/// or the pattern is empty.
std::size_t FindBytes(ByteView bytes, ByteView pattern, std::size_t step);
