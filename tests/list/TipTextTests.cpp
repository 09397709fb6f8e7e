#include "list/TipText.h"

#include <gtest/gtest.h>

namespace {

constexpr TextView kPrefix = OLESTR("Warning");

Text PropertyTip(const TipTexts& texts)
{
    return TipTextOf(texts, ListType::PropertyList, kPrefix);
}
Text TreeTip(const TipTexts& texts)
{
    return TipTextOf(texts, ListType::TreeList, kPrefix);
}

} // namespace

TEST(TipText, OfAPropertyShowsTheErrorAlone)
{
    EXPECT_EQ(PropertyTip({.error = OLESTR("Error: too big"), .warning = OLESTR("worn probe")}),
              OLESTR("Error: too big"));
}

TEST(TipText, OfAPropertyShowsAWarningBehindItsPrefix)
{
    EXPECT_EQ(PropertyTip({.warning = OLESTR("worn probe")}), OLESTR("Warning worn probe"));
}

TEST(TipText, OfAPropertyWithoutTextsIsEmpty)
{
    EXPECT_EQ(PropertyTip({.help = OLESTR("unused"), .fallback = OLESTR("unused")}), Text());
}

TEST(TipText, OfATreeJoinsWhatThereIsByEmptyLines)
{
    EXPECT_EQ(TreeTip({.error = OLESTR("E"), .warning = OLESTR("W"), .help = OLESTR("H")}),
              OLESTR("E\r\n\r\nH\r\n\r\nW"));
    EXPECT_EQ(TreeTip({.warning = OLESTR("W"), .help = OLESTR("H")}), OLESTR("H\r\n\r\nW"));
    EXPECT_EQ(TreeTip({.error = OLESTR("E"), .warning = OLESTR("W")}), OLESTR("E\r\n\r\nW"));
}

TEST(TipText, OfATreeFallsBackWhenNothingElseIsThere)
{
    EXPECT_EQ(TreeTip({.fallback = OLESTR("F")}), OLESTR("F"));
    EXPECT_EQ(TreeTip({.help = OLESTR("H"), .fallback = OLESTR("F")}), OLESTR("H"));
}

TEST(TipText, IsAtMostThreeQuartersOfTheListWide)
{
    EXPECT_EQ(MaxTipWidth(400), 300);
    EXPECT_EQ(MaxTipWidth(333), 249);
    EXPECT_EQ(MaxTipWidth(0), 0);
}
