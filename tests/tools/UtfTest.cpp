#include "tools/lvprop/Utf.h"

#include <gtest/gtest.h>

TEST(Utf, RoundTripsCharactersOfEveryLength)
{
    const std::string text = "a\xC2\xAC\xE2\x82\xAC\xF0\x9D\x84\x9E";
    EXPECT_EQ(ToText(text).size(), 5u) << "the last one takes two units";
    EXPECT_EQ(ToUtf8(ToText(text)), text);
}

TEST(Utf, TurnsEachBadByteIntoOneReplacementCharacter)
{
    for (const std::string bad : {"\xFF", "\x80", "\xC0", "\xE2", "\xF0"})
        EXPECT_EQ(ToText("a" + bad + "b"), OLESTR("a\xFFFD"
                                                  "b"))
            << static_cast<int>(bad[0]);
    EXPECT_EQ(ToText("\xE2\x82").size(), 2u) << "a cut character is as many bad bytes";
}

TEST(Utf, RefusesOverlongFormsSurrogatesAndNumbersPastTheEnd)
{
    EXPECT_EQ(CharacterAt("\xE0\x80\xAF", 0).length, 1u);
    EXPECT_EQ(CharacterAt("\xED\xA0\x80", 0).codePoint, char32_t{0xFFFD});
    EXPECT_EQ(CharacterAt("\xF4\x90\x80\x80", 0).codePoint, char32_t{0xFFFD});
}

TEST(Utf, WritesASurrogateWithoutPartnerAsReplacement)
{
    const Text lone{OLECHAR{'a'}, static_cast<OLECHAR>(0xD834), OLECHAR{'b'}};
    EXPECT_EQ(ToUtf8(lone), "a\xEF\xBF\xBD"
                            "b");
}
