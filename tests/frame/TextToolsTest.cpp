#include "frame/TextTools.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<Text> Tokens(TextView text, TextView delimiters)
{
    std::vector<Text> tokens;
    for (const TextView token : SplitAt(text, delimiters))
        tokens.emplace_back(token);
    return tokens;
}

TEST(TextTools, TrimmingTakesTheSixWhiteSpaceUnitsFromBothEnds)
{
    EXPECT_EQ(TrimWhiteSpace(OLESTR(" \t\n\v\f\ra b\r\f\v\n\t ")), OLESTR("a b"));
    EXPECT_EQ(TrimWhiteSpace(OLESTR("  ")), OLESTR(""));
    EXPECT_EQ(TrimWhiteSpace(OLESTR("")), OLESTR(""));
    EXPECT_EQ(TrimWhiteSpace(OLESTR("\x00A0"
                                    "a")),
              OLESTR("\x00A0"
                     "a")); // A hard blank is none of them.
}

TEST(TextTools, ComparisonWithoutCaseFoldsAsciiLettersOnly)
{
    EXPECT_TRUE(EqualsIgnoringCase(OLESTR("Datum A"), OLESTR("dATUM a")));
    EXPECT_FALSE(EqualsIgnoringCase(OLESTR("Datum"), OLESTR("Datum A")));
    EXPECT_FALSE(EqualsIgnoringCase(OLESTR("\x00C4"), OLESTR("\x00E4")));
    EXPECT_FALSE(EqualsIgnoringCase(OLESTR("@["), OLESTR("`{")));
    EXPECT_TRUE(EqualsIgnoringCase({}, OLESTR("")));
}

TEST(TextTools, SplittingSkipsEmptyTokens)
{
    EXPECT_THAT(Tokens(OLESTR("~~a~b~~~c~"), OLESTR("~")), ElementsAre(OLESTR("a"), OLESTR("b"), OLESTR("c")));
    EXPECT_THAT(Tokens(OLESTR("; 1;2 ; 3"), OLESTR("; ")), ElementsAre(OLESTR("1"), OLESTR("2"), OLESTR("3")));
    EXPECT_THAT(Tokens(OLESTR("one"), OLESTR("\r\n")), ElementsAre(OLESTR("one")));
    EXPECT_THAT(Tokens(OLESTR("3\x00AC"
                              "1\x00AC"
                              "10"),
                       OLESTR("\x00AC")),
                ElementsAre(OLESTR("3"), OLESTR("1"), OLESTR("10")));
}

TEST(TextTools, ATextOfDelimitersHasNoToken)
{
    EXPECT_THAT(Tokens(OLESTR("~~~"), OLESTR("~")), IsEmpty());
    EXPECT_THAT(Tokens(OLESTR(""), OLESTR("~")), IsEmpty());
    EXPECT_THAT(Tokens({}, OLESTR("~")), IsEmpty());
}

TEST(TextTools, TokensPointIntoTheText)
{
    const Text text = OLESTR("ab;cd");
    const TokenRange range = SplitAt(text, OLESTR(";"));
    auto token = range.begin();
    EXPECT_EQ((*token).data(), text.data());
    const auto second = ++token;
    EXPECT_EQ((*second).data(), text.data() + 3);
    EXPECT_NE(second, range.begin());
    EXPECT_EQ(++token, range.end());
}

TEST(TextTools, ReplacingGoesFromLeftToRightAndOnce)
{
    const auto replaced = [](Text text, TextView what, TextView replacement) {
        ReplaceAll(text, what, replacement);
        return text;
    };
    EXPECT_EQ(replaced(OLESTR("a\r\nb\r\n"), OLESTR("\r\n"), OLESTR("#")), OLESTR("a#b#"));
    EXPECT_EQ(replaced(OLESTR("~a~~"), OLESTR("~"), OLESTR("\\$")), OLESTR("\\$a\\$\\$"));
    EXPECT_EQ(replaced(OLESTR("aaa"), OLESTR("aa"), OLESTR("a")), OLESTR("aa"));
    EXPECT_EQ(replaced(OLESTR("x"), OLESTR("x"), OLESTR("xx")), OLESTR("xx"));
    EXPECT_EQ(replaced(OLESTR("abc"), OLESTR("d"), OLESTR("")), OLESTR("abc"));
    EXPECT_EQ(replaced(OLESTR("abc"), OLESTR(""), OLESTR("-")), OLESTR("abc"));
    EXPECT_EQ(replaced(OLESTR("abcabc"), OLESTR("b"), OLESTR("")), OLESTR("acac"));
}

TEST(TextTools, ErasingTakesEveryUnitOfTheSet)
{
    Text text = OLESTR("([{1;2;3}])");
    EraseAny(text, OLESTR("()[]{}"));
    EXPECT_EQ(text, OLESTR("1;2;3"));
}

} // namespace
