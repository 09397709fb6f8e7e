#include "core/Transliterate.h"

#include <gtest/gtest.h>

#include <string>

namespace {

Text Single(unsigned code)
{
    return Text(1, static_cast<OLECHAR>(code));
}

/// The counterpart of each code below 256; a blank line of the table is 16 codes without one.
constexpr char kExpected[] = "@@@@@@@@@@@@@@@@"
                             "@@@@@@@@@@@@@@@@"
                             " !\"#$%&'()*+,-./"
                             "0123456789:;<=>?"
                             "@ABCDEFGHIJKLMNO"
                             "PQRSTUVWXYZ[\\]^_"
                             "`abcdefghijklmno"
                             "pqrstuvwxyz{|}~@"
                             "@@@@@@@@@@S@C@Z@"
                             "@@@@@@@@@@s@c@zY"
                             "@i@@@@@@@@@@@@@@"
                             "@@@@@@@@@@@@@@@@"
                             "AAAAAAACEEEEIIII"
                             "DNOOOOO@OUUUUY@s"
                             "aaaaaaaceeeeiiii"
                             "@nooooo@ouuuuy@y";
static_assert(sizeof kExpected == 257);

TEST(Transliterate, EveryCodeBelow256BecomesItsCounterpartOrGoes)
{
    for (unsigned code = 0; code < 256; ++code) {
        const auto letter = static_cast<unsigned char>(kExpected[code]);
        const bool dropped = letter == '@' && code != '@';
        EXPECT_EQ(TransliterateToAscii(Single(code)), dropped ? Text() : Single(letter)) << code;
    }
}

TEST(Transliterate, EveryCodeOfANameBecomesItsCounterpartOrAnAt)
{
    for (unsigned code = 0; code < 256; ++code) {
        Text name = Single(code);
        MapNameCharacters(name);
        EXPECT_EQ(name, Single(static_cast<unsigned char>(kExpected[code]))) << code;
    }
}

TEST(Transliterate, LettersAbove255AreDroppedFromTextAndMarkedInNames)
{
    const Text word = OLESTR("gr\x00F6\x00DF"
                             "e \x03B1");
    EXPECT_EQ(TransliterateToAscii(word), OLESTR("grose "));
    Text name = word;
    MapNameCharacters(name);
    EXPECT_EQ(name, OLESTR("grose @"));
}

TEST(Transliterate, OnlyCharactersFrom128OnAskForIt)
{
    EXPECT_FALSE(NeedsTransliteration(OLESTR("plain\r\n\x7F")));
    EXPECT_FALSE(NeedsTransliteration({}));
    EXPECT_TRUE(NeedsTransliteration(OLESTR("\x0080")));
    EXPECT_TRUE(NeedsTransliteration(OLESTR("a\x20AC")));
}

} // namespace
