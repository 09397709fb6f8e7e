// The lookup of help texts and resources by state and property.
#include "core/HelpTable.h"

#include <gtest/gtest.h>

namespace {

constexpr LONG kAny = HelpTable::kAny;

class HelpTableTest : public testing::Test {
protected:
    HelpTable table;

    void AddResource(LONG state, LONG mask, LONG propId, LONG resId)
    {
        table.AddResource(state, mask, propId, {7, resId});
    }
    /// Resource id found; 0 for none.
    LONG Resource(LONG state, LONG propId) const
    {
        const HelpResource* found = table.FindResource(state, propId);
        return found ? found->nResID : 0;
    }
    /// Text found; a dash for none.
    Text TextAt(LONG state, LONG propId) const
    {
        const HelpTable::Entry* found = table.FindText(state, propId);
        return found ? found->value_or(OLESTR("(null)")) : OLESTR("-");
    }
};

} // namespace

TEST_F(HelpTableTest, IsEmptyAtFirst)
{
    EXPECT_EQ(Resource(1, 1), 0);
    EXPECT_EQ(TextAt(1, 1), OLESTR("-"));
}

TEST_F(HelpTableTest, GivesModuleAndIdOfAResource)
{
    table.AddResource(0, 0, 5, {0x1234'5678'9ABC, 42});
    const HelpResource* found = table.FindResource(0, 5);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->hModule, 0x1234'5678'9ABC);
    EXPECT_EQ(found->nResID, 42);
}

TEST_F(HelpTableTest, AnswersInEveryStateFromStateZeroWhenNoMaskWasSet)
{
    AddResource(0, 0, 5, 42);
    EXPECT_EQ(Resource(0, 5), 42);
    EXPECT_EQ(Resource(13, 5), 42);
    EXPECT_EQ(Resource(-1, 5), 42);
}

TEST_F(HelpTableTest, AnswersNoInEveryStateForAStateThatTheMaskHides)
{
    AddResource(5, 0, 3, 42);
    for (LONG state = -2; state < 16; ++state)
        EXPECT_EQ(Resource(state, 3), 0) << state;
}

TEST_F(HelpTableTest, LooksOnlyAtTheBitsOfTheMask)
{
    AddResource(5, 7, 3, 42);
    EXPECT_EQ(Resource(13, 3), 42); // 1101 & 0111 = 0101
    EXPECT_EQ(Resource(5, 3), 42);
    EXPECT_EQ(Resource(4, 3), 0);
}

TEST_F(HelpTableTest, KeepsTheFirstMaskOfAProperty)
{
    AddResource(5, 7, 3, 42);
    AddResource(8, 15, 3, 43);
    EXPECT_EQ(Resource(13, 3), 42);
    EXPECT_EQ(Resource(8, 3), 0);
}

TEST_F(HelpTableTest, KeepsAMaskOfZeroAgainstLaterOnes)
{
    AddResource(0, 0, 3, 42);
    AddResource(5, 7, 3, 43);
    EXPECT_EQ(Resource(5, 3), 42);
}

TEST_F(HelpTableTest, IgnoresTheMaskOfAnEntryForAnyState)
{
    AddResource(kAny, 7, 3, 42);
    AddResource(8, 8, 3, 43);
    EXPECT_EQ(Resource(8, 3), 43);
    EXPECT_EQ(Resource(7, 3), 42);
}

TEST_F(HelpTableTest, FallsBackFromTheMaskedStateToAnyState)
{
    AddResource(5, 7, 3, 42);
    AddResource(kAny, 0, 3, 43);
    EXPECT_EQ(Resource(5, 3), 42);
    EXPECT_EQ(Resource(6, 3), 43);
}

TEST_F(HelpTableTest, ReplacesTheResourceOfTheSameStateAndProperty)
{
    AddResource(0, 0, 3, 42);
    AddResource(0, 0, 3, 43);
    EXPECT_EQ(Resource(0, 3), 43);
}

TEST_F(HelpTableTest, TakesPropertyZeroForAnyPropertyInResources)
{
    AddResource(0, 0, 0, 42);
    EXPECT_EQ(Resource(0, 17), 42);
    EXPECT_EQ(Resource(0, kAny), 42);
    EXPECT_EQ(Resource(0, 0), 42);
    AddResource(0, 0, kAny, 43);
    EXPECT_EQ(Resource(0, 17), 43);
}

TEST_F(HelpTableTest, UsesTheMaskOfAnyPropertyWithItsResources)
{
    AddResource(1, 1, kAny, 42);
    EXPECT_EQ(Resource(3, 17), 42);
    EXPECT_EQ(Resource(2, 17), 0);
}

TEST_F(HelpTableTest, NeverFallsBackToAnyPropertyOnceAPropertyHasResourcesOfItsOwn)
{
    AddResource(0, 0, kAny, 42);
    AddResource(5, 7, 3, 43);
    EXPECT_EQ(Resource(6, 3), 0);
    EXPECT_EQ(Resource(6, 4), 42);
}

TEST_F(HelpTableTest, FindsATextByStateAndProperty)
{
    table.AddText(2, 3, OLESTR("two three"));
    EXPECT_EQ(TextAt(2, 3), OLESTR("two three"));
    EXPECT_EQ(TextAt(3, 2), OLESTR("-"));
    EXPECT_EQ(TextAt(2, 4), OLESTR("-"));
}

TEST_F(HelpTableTest, PrefersInATextTheStateToThePropertyAndBothToWildcards)
{
    table.AddText(kAny, kAny, OLESTR("any any"));
    EXPECT_EQ(TextAt(2, 3), OLESTR("any any"));
    table.AddText(kAny, 3, OLESTR("any 3"));
    EXPECT_EQ(TextAt(2, 3), OLESTR("any 3"));
    table.AddText(2, kAny, OLESTR("2 any"));
    EXPECT_EQ(TextAt(2, 3), OLESTR("2 any"));
    table.AddText(2, 3, OLESTR("2 3"));
    EXPECT_EQ(TextAt(2, 3), OLESTR("2 3"));
}

TEST_F(HelpTableTest, FallsBackToAnyStateWhereTheStateHasTextsOfOtherPropertiesOnly)
{
    table.AddText(2, 4, OLESTR("2 4"));
    table.AddText(kAny, 3, OLESTR("any 3"));
    EXPECT_EQ(TextAt(2, 3), OLESTR("any 3"));
}

TEST_F(HelpTableTest, KeepsPropertyZeroAsItIsInTexts)
{
    table.AddText(2, 0, OLESTR("zero"));
    EXPECT_EQ(TextAt(2, 0), OLESTR("zero"));
    EXPECT_EQ(TextAt(2, 3), OLESTR("-"));
}

TEST_F(HelpTableTest, TakesAnEntryWithoutATextForAnAnswer)
{
    table.AddText(kAny, kAny, OLESTR("any any"));
    table.AddText(2, 3, std::nullopt);
    EXPECT_EQ(TextAt(2, 3), OLESTR("(null)"));
}

TEST_F(HelpTableTest, ReplacesTheTextOfTheSameStateAndProperty)
{
    table.AddText(2, 3, OLESTR("old"));
    table.AddText(2, 3, OLESTR(""));
    EXPECT_EQ(TextAt(2, 3), OLESTR(""));
}
