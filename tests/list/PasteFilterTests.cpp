#include "list/PasteFilter.h"

#include <gtest/gtest.h>

TEST(PasteFilter, KeepsPrintableAsciiIncludingTheAtSign)
{
    Text ascii;
    for (OLECHAR c = 32; c < 127; ++c)
        ascii += c;
    EXPECT_EQ(FilterPaste(ascii), ascii);
}

TEST(PasteFilter, DropsControlCharacters)
{
    EXPECT_EQ(FilterPaste(OLESTR("1\r\n2\t3")), OLESTR("123"));
    EXPECT_TRUE(FilterPaste(OLESTR("\r\n\t\x1\x1F\x7F")).empty());
}

TEST(PasteFilter, MapsLatinLettersToTheirBase)
{
    EXPECT_EQ(FilterPaste(Text{0xC0, 0xC6, 0xC7, 0xD0, 0xD6, 0xD8, 0xDC, 0xDD, 0xDF}), OLESTR("AACDOOUYs"));
    EXPECT_EQ(FilterPaste(Text{0xE0, 0xE6, 0xE7, 0xE8, 0xEF, 0xF1, 0xF6, 0xF8, 0xFC, 0xFD, 0xFF}),
              OLESTR("aaceinoouyy"));
    EXPECT_EQ(FilterPaste(Text{0x8A, 0x8C, 0x8E, 0x9A, 0x9C, 0x9E, 0x9F, 0xA1}), OLESTR("SCZsczYi"));
}

TEST(PasteFilter, DropsWhatHasNoBaseLetter)
{
    EXPECT_TRUE(FilterPaste(Text{0x80, 0x99, 0xA0, 0xA2, 0xB0, 0xD7, 0xDE, 0xF0, 0xF7, 0xFE}).empty());
}

TEST(PasteFilter, DropsCharactersAbove255WithoutLookingAtTheirLowByte)
{
    EXPECT_EQ(FilterPaste(Text{OLECHAR('a'), 0x3B1, 0x0141, 0xFF11, OLECHAR('b')}), OLESTR("ab"));
}

TEST(PasteFilter, LetsLettersIntoWhatMayBeANumber)
{
    EXPECT_EQ(FilterPaste(OLESTR("12 mm")), OLESTR("12 mm"));
}
