#include <lumevor/Text.h>

#include <gmock/gmock.h>

namespace {

using lumevor::FromUtf8;
using lumevor::String;
using lumevor::Text;
using lumevor::ToUtf8;

TEST(KitText, GoesToUtf8AndBackInEveryPlane)
{
    const Text text = OLESTR("A\x00E9\x07FF\x0800\x65E5\xFFFD\xD83D\xDE00");
    EXPECT_EQ(ToUtf8(text), "A\xC3\xA9\xDF\xBF\xE0\xA0\x80\xE6\x97\xA5\xEF\xBF\xBD\xF0\x9F\x98\x80");
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
    EXPECT_EQ(ToUtf8({}), "");
}

TEST(KitText, ReplacesALoneSurrogate)
{
    EXPECT_EQ(ToUtf8(Text(1, static_cast<OLECHAR>(0xD83D))), "\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(Text{static_cast<OLECHAR>(0xDE00), OLESTR('x')}), "\xEF\xBF\xBDx");
}

TEST(KitText, ReplacesEachByteThatBeginsNoCharacter)
{
    const Text bad(1, static_cast<OLECHAR>(0xFFFD));
    EXPECT_EQ(FromUtf8("\x80x"), bad + OLESTR("x"));
    EXPECT_EQ(FromUtf8("\xC0\xAF"), bad + bad);                     // overlong
    EXPECT_EQ(FromUtf8("\xED\xA0\x80"), bad + bad + bad);           // a surrogate
    EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), bad + bad + bad + bad); // beyond the last plane
    EXPECT_EQ(FromUtf8("\xE6\x97"), bad + bad);                     // cut off
    EXPECT_EQ(FromUtf8("\xE6x"), bad + OLESTR("x"));
}

TEST(KitText, OwnsOneBstrAndGivesNullToOutParameters)
{
    String text(OLESTR("one"));
    const String copy = text;
    EXPECT_EQ(*text.Put(), nullptr);
    EXPECT_TRUE(text.IsNull());
    EXPECT_EQ(text.View(), OLESTR(""));
    EXPECT_EQ(copy.View(), OLESTR("one"));
}

TEST(KitText, KeepsZeroUnitsInsideAText)
{
    const Text inside{OLESTR('a'), OLECHAR{0}, OLESTR('b')};
    EXPECT_EQ(String(inside).View(), inside);
}

} // namespace
