// The choice of the encoding, marks, and the search in encoded bytes. The encodings themselves are the platform's.
#include "suite/CodePages.h"

#include <gmock/gmock.h>

#include <vector>

namespace {

using Bytes = std::vector<unsigned char>;

Bytes Encode(TextView text, LONG codePage)
{
    ByteBuffer out;
    EncodeText(text, codePage, out);
    return {out.View().begin(), out.View().end()};
}

Text Decode(const Bytes& bytes, LONG codePage)
{
    Text text;
    DecodeText(bytes, codePage, text);
    return text;
}

Bytes BytesOf(std::string_view text)
{
    return {text.begin(), text.end()};
}

TEST(CodePages, Utf8TakesOneToFourBytesPerCharacter)
{
    const Text text = OLESTR("a\x00E4\x20AC\xD83D\xDE00");
    const Bytes bytes = BytesOf("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(Encode(text, kCodePageUtf8), bytes);
    EXPECT_EQ(Decode(bytes, kCodePageUtf8), text);
}

TEST(CodePages, WhatACodePageLacksBecomesItsReplacement)
{
    EXPECT_EQ(Encode(OLESTR("\x20AC\x0394"), kCodePageWindows1252), BytesOf("\x80?"));
    EXPECT_EQ(Encode(Text{0xD800}, kCodePageUtf8), BytesOf("\xEF\xBF\xBD"));
    EXPECT_EQ(Decode(BytesOf("a\x80"), kCodePageUtf8), OLESTR("a\xFFFD"));
}

TEST(CodePages, DecodingAppends)
{
    for (const LONG codePage : kStreamCodePages) {
        Text text = OLESTR("before ");
        const Bytes bytes = Encode(OLESTR("behind"), codePage);
        DecodeText(bytes, codePage, text);
        EXPECT_EQ(text, OLESTR("before behind")) << codePage;
    }
}

TEST(CodePages, TheSystemsCodePageKeepsAscii)
{
    EXPECT_EQ(Encode(OLESTR("plain 123"), kCodePageSystem), BytesOf("plain 123"));
    EXPECT_EQ(Decode(BytesOf("plain 123"), kCodePageSystem), OLESTR("plain 123"));
}

TEST(CodePages, SixteenBitTextIsItsUnitsAndLosesHalfOne)
{
    EXPECT_EQ(Encode(Text{0x1234, 0xD800}, kCodePageUtf16), (Bytes{0x34, 0x12, 0x00, 0xD8}));
    EXPECT_EQ(Decode({0x34, 0x12, 0x56}, kCodePageUtf16), (Text{0x1234}));
}

TEST(CodePages, AMarkTellsItsCodePage)
{
    EXPECT_EQ(CodePageOfMark(ByteOrderMark(kCodePageUtf16)), kCodePageUtf16);
    EXPECT_EQ(CodePageOfMark(ByteOrderMark(kCodePageUtf8)), kCodePageUtf8);
    EXPECT_TRUE(ByteOrderMark(kCodePageWindows1252).empty());
    EXPECT_TRUE(ByteOrderMark(kCodePageSystem).empty());
    EXPECT_EQ(CodePageOfMark(Bytes{0xFF}), -1);
    EXPECT_EQ(CodePageOfMark(Bytes{0xEF, 0xBB}), -1);
    EXPECT_EQ(CodePageOfMark(Bytes{}), -1);
}

TEST(FindBytes, FindsOnlyAtMultiplesOfTheStep)
{
    const Bytes bytes{1, 10, 0, 13, 0, 10, 0};
    EXPECT_EQ(FindBytes(bytes, Bytes{10, 0}, 1), 1u);
    EXPECT_EQ(FindBytes(bytes, Bytes{10, 0}, 2), bytes.size()); // offsets 1 and 5 are in the middle of units
    EXPECT_EQ(FindBytes(ByteView(bytes).subspan(1), Bytes{13, 0, 10, 0}, 2), 2u);
}

TEST(FindBytes, FindsNothingInLessThanThePatternAndNoEmptyPattern)
{
    EXPECT_EQ(FindBytes(Bytes{13}, Bytes{13, 10}, 1), 1u);
    EXPECT_EQ(FindBytes(Bytes{}, Bytes{13}, 1), 0u);
    EXPECT_EQ(FindBytes(Bytes{1, 2}, Bytes{}, 1), 2u);
    EXPECT_EQ(FindBytes(Bytes{13, 13, 10}, Bytes{13, 10}, 1), 1u);
}

} // namespace
