#include "platform/system/AnsiText.h"
#include "platform/system/Utf8.h"
#include "platform/system/Windows1252.h"

#include <gtest/gtest.h>

namespace {

TEST(Utf8, WritesAndReadsCharactersOfEveryLength)
{
    const Text text = OLESTR("A\u00E4\u20AC\U0001F4D0");
    const std::string bytes = "A\xC3\xA4\xE2\x82\xAC\xF0\x9F\x93\x90";
    EXPECT_EQ(Utf8From(text), bytes);
    EXPECT_EQ(TextFromUtf8(bytes), text);
}

TEST(Utf8, ReplacesALoneHalfOfAPair)
{
    const OLECHAR lone[] = {OLESTR('a'), OLECHAR(0xD83D), OLESTR('b'), OLECHAR(0xDCD0), 0};
    EXPECT_EQ(Utf8From(lone), "a\xEF\xBF\xBD"
                              "b\xEF\xBF\xBD");
}

TEST(Utf8, ReplacesEachMalformedByteAndGoesOn)
{
    struct {
        std::string_view bytes;
        const OLECHAR* text;
    } const cases[] = {
        {"a\x80z", OLESTR("a\uFFFDz")},                           // a tail without a lead
        {"\xC3", OLESTR("\uFFFD")},                               // cut off
        {"\xE2\x82z", OLESTR("\uFFFD\uFFFDz")},                   // cut short
        {"\xC0\x80", OLESTR("\uFFFD\uFFFD")},                     // overlong
        {"\xE0\x80\xAF", OLESTR("\uFFFD\uFFFD\uFFFD")},           // overlong
        {"\xED\xA0\x80", OLESTR("\uFFFD\uFFFD\uFFFD")},           // a surrogate
        {"\xF4\x90\x80\x80", OLESTR("\uFFFD\uFFFD\uFFFD\uFFFD")}, // above the last character
        {"\xFFz", OLESTR("\uFFFDz")},
    };
    for (const auto& c : cases)
        EXPECT_EQ(TextFromUtf8(c.bytes), c.text);
}

TEST(Utf8, SurvivesEveryPairOfBytes)
{
    for (int pair = 0; pair < 0x10000; ++pair) {
        const char bytes[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
        const Text text = TextFromUtf8({bytes, 2});
        EXPECT_TRUE(text.size() == 1 || text.size() == 2);
        EXPECT_EQ(TextFromUtf8(Utf8From(text)), text);
    }
}

TEST(Windows1252, GivesEveryByteBackAsItWas)
{
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    const Text text = TextFromWindows1252(bytes);
    EXPECT_EQ(Windows1252From(text), bytes);
    EXPECT_EQ(text[0x80], OLECHAR(0x20AC));
    EXPECT_EQ(text[0x81], OLECHAR(0x81)) << "a free place of the code page";
    EXPECT_EQ(text[0xB0], OLECHAR(0xB0));
}

TEST(Windows1252, HasAQuestionMarkForWhatItLacks)
{
    EXPECT_EQ(Windows1252From(OLESTR("\u2300 5\u00B0")), "? 5\xB0");
    EXPECT_EQ(Windows1252From(OLESTR("\U0001F4D0")), "?") << "a pair is one character";
}

TEST(AnsiText, KeepsPlainCharacters)
{
    EXPECT_EQ(AnsiFrom(OLESTR("datum A|B")), "datum A|B");
    EXPECT_EQ(TextFromAnsi("datum A|B"), OLESTR("datum A|B"));
    EXPECT_EQ(AnsiFrom(OLESTR("")), "");
    EXPECT_EQ(TextFromAnsi(""), OLESTR(""));
}

TEST(AnsiText, ReadsBackWhatTheCodePageHolds)
{
    const Text text = TextFromAnsi("25 \xB0");
    EXPECT_EQ(TextFromAnsi(AnsiFrom(text)), text);
}

} // namespace
