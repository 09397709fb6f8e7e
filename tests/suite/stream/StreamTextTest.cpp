// Text mode: lines, delimiters, code pages.
#include "tests/suite/stream/StreamFixture.h"

using testing::ElementsAre;

namespace {

class TextStream : public testing::Test, public NewStreamUser {
protected:
    TextStream() { SetMode(E_STREAM_MODE_TEXT); }

    Text WholeText()
    {
        CComBSTR content;
        EXPECT_EQ(stream->GetStreamContentsAsString(&content), S_OK);
        return Text(content.View());
    }
};

class TextStreamInCodePage : public TextStream, public testing::WithParamInterface<LONG> {
protected:
    TextStreamInCodePage() { SetCodePage(GetParam()); }
};

TEST_P(TextStreamInCodePage, LinesComeBackOneByOne)
{
    WriteString(OLESTR("first"));
    WriteString(OLESTR(""));
    WriteString(OLESTR("\x00E4\x00F6 third"));
    EXPECT_EQ(ReadString(), Line(OLESTR("first")));
    EXPECT_EQ(ReadString(), Line(OLESTR("")));
    EXPECT_EQ(ReadString(), Line(OLESTR("\x00E4\x00F6 third")));
    EXPECT_EQ(ReadString(), kNothingLeft);
    EXPECT_EQ(CodePage(), GetParam());
}

TEST_P(TextStreamInCodePage, ALineOfAMillionCharactersIsOneLine)
{
    const Text text(1'000'000, OLESTR('x'));
    WriteString(text);
    WriteString(OLESTR("next"));
    EXPECT_EQ(ReadString(), Line(text));
    EXPECT_EQ(ReadString(), Line(OLESTR("next")));
}

TEST_P(TextStreamInCodePage, TheContentAsTextHoldsTheDelimiters)
{
    WriteString(OLESTR("a"));
    WriteString(OLESTR("b"));
    EXPECT_EQ(WholeText(), OLESTR("a\r\nb\r\n"));
}

INSTANTIATE_TEST_SUITE_P(Every, TextStreamInCodePage, testing::Values(0, 1200, 1252, 65001));

TEST_F(TextStream, TheBytesAreThoseOfTheCodePage)
{
    WriteString(OLESTR("\x20AC"), VARIANT_FALSE);
    EXPECT_THAT(Content(), ElementsAre(0xAC, 0x20));
    Clear();
    SetCodePage(65001);
    WriteString(OLESTR("\x20AC"), VARIANT_FALSE);
    EXPECT_THAT(Content(), ElementsAre(0xE2, 0x82, 0xAC));
    Clear();
    SetCodePage(1252);
    WriteString(OLESTR("\x20AC"));
    EXPECT_THAT(Content(), ElementsAre(0x80, '\r', '\n'));
}

TEST_F(TextStream, AnotherCodePageCountsFromThenOnAndConvertsNothing)
{
    SetCodePage(65001);
    WriteString(OLESTR("\x00E4"));
    SetCodePage(1252);
    EXPECT_EQ(ReadString(), Line(OLESTR("\x00C3\x00A4")));
}

TEST_F(TextStream, ATextWithoutNewLineGoesOnInTheSameLine)
{
    WriteString(OLESTR("one "), VARIANT_FALSE);
    WriteString(OLESTR("line"));
    EXPECT_EQ(Items(), 2);
    EXPECT_EQ(ReadString(), Line(OLESTR("one line")));
}

TEST_F(TextStream, TheLastLineNeedsNoDelimiter)
{
    WriteString(OLESTR("a"));
    WriteString(OLESTR("b"), VARIANT_FALSE);
    ReadString();
    EXPECT_EQ(ReadString(), Line(OLESTR("b")));
    EXPECT_EQ(ReadString(), kNothingLeft);
}

TEST_F(TextStream, ALineEndsAtItsDelimiterOnly)
{
    WriteString(OLESTR("cr\rlf\nlfcr\n\rcr\r"));
    EXPECT_EQ(ReadString(), Line(OLESTR("cr\rlf\nlfcr\n\rcr\r")));
    EXPECT_EQ(ReadString(), kNothingLeft);
}

TEST_F(TextStream, ATextThatHoldsTheDelimiterIsSeveralLines)
{
    WriteString(OLESTR("a\r\nb"));
    EXPECT_EQ(ReadString(), Line(OLESTR("a")));
    EXPECT_EQ(ReadString(), Line(OLESTR("b")));
    EXPECT_EQ(ReadString(), kNothingLeft);
}

TEST_F(TextStream, AnyTextMayBeTheDelimiter)
{
    SetDelimiter(OLESTR("<->"));
    WriteString(OLESTR("a\r\n<-"));
    WriteString(OLESTR("b"));
    CComBSTR delimiter;
    EXPECT_EQ(stream->GetDelimiter(&delimiter), S_OK);
    EXPECT_EQ(delimiter.View(), OLESTR("<->"));
    EXPECT_EQ(ReadString(), Line(OLESTR("a\r\n<-")));
    EXPECT_EQ(ReadString(), Line(OLESTR("b")));
    EXPECT_EQ(ReadString(), kNothingLeft);
}

TEST_F(TextStream, WithoutADelimiterAllTheRestIsOneText)
{
    EXPECT_EQ(stream->SetDelimiter(nullptr), S_OK);
    WriteString(OLESTR("a\r\n"));
    WriteString(OLESTR("b"));
    EXPECT_EQ(ReadString(), Line(OLESTR("a\r\nb")));
    EXPECT_EQ(ReadString(), kNothingLeft);
}

TEST_F(TextStream, ADelimiterIsLookedForInTheCodePage)
{
    SetCodePage(65001);
    SetDelimiter(OLESTR("\x2028"));
    WriteString(OLESTR("a"));
    WriteString(OLESTR("b"));
    EXPECT_EQ(Size(), 2 * 4);
    EXPECT_EQ(ReadString(), Line(OLESTR("a")));

    SetCodePage(1200);
    EXPECT_EQ(stream->ClearStream(), S_OK);
    WriteString(OLESTR("c"));
    EXPECT_EQ(ReadString(), Line(OLESTR("c")));
}

TEST_F(TextStream, SixteenBitLinesAreSplitAtWholeCharacters)
{
    // 0D0D 0A0A holds the bytes of CR LF only across its two characters.
    SetDelimiter(OLESTR("\x0A0D"));
    WriteString(Text{0x0D00, 0x000A});
    EXPECT_EQ(ReadString(), Line(Text{0x0D00, 0x000A}));
}

TEST_F(TextStream, RawBytesGoInAndOutAsTheyAre)
{
    Write({0, 255, 13});
    WriteString(OLESTR("x"));
    EXPECT_THAT(Read(3), ElementsAre(0, 255, 13));
    EXPECT_EQ(ReadString(), Line(OLESTR("x")));
}

TEST_F(TextStream, HalfACharacterAtTheEndIsLeftOut)
{
    Load({'a', 0, 'b'});
    EXPECT_EQ(ReadString(), Line(OLESTR("a")));
    EXPECT_EQ(ReadString(), kNothingLeft);
    Load({'a'});
    EXPECT_EQ(ReadString(), kNoTextHere);
    EXPECT_EQ(ReadString(), kNothingLeft);
}

TEST_F(TextStream, ATextWrittenInBinaryIsReadInBinary)
{
    WriteString(OLESTR("line"));
    SetMode(E_STREAM_MODE_BINARY);
    WriteString(OLESTR("framed\r\n"));
    SetMode(E_STREAM_MODE_TEXT);
    EXPECT_EQ(ReadString(), Line(OLESTR("line")));
    SetMode(E_STREAM_MODE_BINARY);
    EXPECT_EQ(ReadString(), Line(OLESTR("framed\r\n")));
}

} // namespace
