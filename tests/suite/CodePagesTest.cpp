// Encodings: known pairs, every unit there and back, broken input.
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

TEST(CodePages, EveryUnitButALoneSurrogateSurvivesUtf8)
{
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const Text text(1, static_cast<OLECHAR>(unit));
        const bool surrogate = unit >= 0xD800 && unit < 0xE000;
        ASSERT_EQ(Decode(Encode(text, kCodePageUtf8), kCodePageUtf8), surrogate ? Text(1, 0xFFFD) : text) << unit;
    }
}

TEST(CodePages, EveryPairSurvivesUtf8)
{
    for (unsigned high = 0xD800; high < 0xDC00; high += 7)
        for (unsigned low = 0xDC00; low < 0xE000; low += 13) {
            const Text text{static_cast<OLECHAR>(high), static_cast<OLECHAR>(low)};
            const Bytes bytes = Encode(text, kCodePageUtf8);
            ASSERT_EQ(bytes.size(), 4u);
            ASSERT_EQ(Decode(bytes, kCodePageUtf8), text);
        }
}

TEST(CodePages, ALowSurrogateBeforeAHighOneIsTwoReplacements)
{
    EXPECT_EQ(Encode(Text{0xDC00, 0xD800}, kCodePageUtf8), BytesOf("\xEF\xBF\xBD\xEF\xBF\xBD"));
}

TEST(CodePages, BrokenUtf8GivesOneReplacementUpToTheByteThatBreaksIt)
{
    const Text r(1, 0xFFFD);
    EXPECT_EQ(Decode(BytesOf("\x80"), kCodePageUtf8), r);                         // a tail alone
    EXPECT_EQ(Decode(BytesOf("\xC0\xAF"), kCodePageUtf8), r + r);                 // overlong
    EXPECT_EQ(Decode(BytesOf("\xE0\x80\xAF"), kCodePageUtf8), r + r + r);         // overlong
    EXPECT_EQ(Decode(BytesOf("\xED\xA0\x80"), kCodePageUtf8), r + r + r);         // a surrogate
    EXPECT_EQ(Decode(BytesOf("\xF4\x90\x80\x80"), kCodePageUtf8), r + r + r + r); // above 10FFFF
    EXPECT_EQ(Decode(BytesOf("\xF5"), kCodePageUtf8), r);
    EXPECT_EQ(Decode(BytesOf("\xE2\x82"), kCodePageUtf8), r); // cut off
    EXPECT_EQ(Decode(BytesOf("\xE2\x82z"), kCodePageUtf8), r + OLESTR("z"));
    EXPECT_EQ(Decode(BytesOf("\xF0\x9F\x98\xC3\xA4"), kCodePageUtf8), r + OLESTR("\x00E4"));
}

TEST(CodePages, EveryByteSurvivesWindows1252)
{
    for (unsigned byte = 0; byte < 0x100; ++byte) {
        const Bytes bytes{static_cast<unsigned char>(byte)};
        ASSERT_EQ(Encode(Decode(bytes, kCodePageWindows1252), kCodePageWindows1252), bytes) << byte;
    }
}

TEST(CodePages, Windows1252KnowsItsOwnCharactersAndAsksForTheOthers)
{
    EXPECT_EQ(Encode(OLESTR("\x20AC\x2026\x0178\x00E4"), kCodePageWindows1252), BytesOf("\x80\x85\x9F\xE4"));
    EXPECT_EQ(Encode(OLESTR("\x0394\xD83D\xDE00"), kCodePageWindows1252), BytesOf("???"));
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
