#include "frame/FormatText.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(FormatText, TextsOfEveryKindArePrinted)
{
    const Text owned = OLESTR("owned");
    const OLECHAR* pointer = OLESTR("pointer");
    EXPECT_EQ(FormatText(OLESTR("%s, %s, %s, %s"), owned, TextView(owned).substr(1), pointer, OLESTR("literal")),
              OLESTR("owned, wned, pointer, literal"));
}

TEST(FormatText, ANullTextShowsThatItIsOne)
{
    const OLECHAR* none = nullptr;
    EXPECT_EQ(FormatText(OLESTR("[%s]"), none), OLESTR("[(null)]"));
    EXPECT_EQ(FormatText(OLESTR("[%s]"), nullptr), OLESTR("[(null)]"));
    EXPECT_EQ(FormatText(OLESTR("[%s]"), TextView{}), OLESTR("[]"));
}

TEST(FormatText, IntegersArePrintedInEveryForm)
{
    EXPECT_EQ(FormatText(OLESTR("%d %i %ld"), -1, LONG{-2}, 3), OLESTR("-1 -2 3"));
    EXPECT_EQ(FormatText(OLESTR("%u %lu"), -1, DWORD{7}), OLESTR("4294967295 7"));
    EXPECT_EQ(FormatText(OLESTR("%x %X %lx"), 0xAB, 0xAB, -1), OLESTR("ab AB ffffffff"));
    EXPECT_EQ(FormatText(OLESTR("%i path points"), 0), OLESTR("0 path points"));
}

TEST(FormatText, WiderIntegersKeepTheirLowestThirtyTwoBits)
{
    EXPECT_EQ(FormatText(OLESTR("%x"), std::uint64_t{0x1'2345'6789}), OLESTR("23456789"));
    EXPECT_EQ(FormatText(OLESTR("%d"), std::size_t{0xFFFF'FFFF'FFFF'FFFF}), OLESTR("-1"));
    EXPECT_EQ(FormatText(OLESTR("%d"), true), OLESTR("1"));
}

TEST(FormatText, WidthAndZerosApplyToIntegers)
{
    EXPECT_EQ(FormatText(OLESTR("0x%08x"), 0xABC), OLESTR("0x00000abc"));
    EXPECT_EQ(FormatText(OLESTR("[%5d][%05d][%05d]"), 42, 42, -42), OLESTR("[   42][00042][-0042]"));
    EXPECT_EQ(FormatText(OLESTR("[%5d][%1d]"), -42, 12345), OLESTR("[  -42][12345]"));
    EXPECT_EQ(FormatText(OLESTR("%0d"), -7), OLESTR("-7"));
}

TEST(FormatText, TwoPercentSignsAreOneAndTakeNoArgument)
{
    EXPECT_EQ(FormatText(OLESTR("%d%% of %s"), 50, OLESTR("all")), OLESTR("50% of all"));
}

TEST(FormatText, AMissingArgumentPrintsNothing)
{
    EXPECT_EQ(FormatText(OLESTR("[%s][%d][%08x]")), OLESTR("[][][]"));
    EXPECT_EQ(FormatText(OLESTR("%s-%s-"), 1), OLESTR("1--"));
}

TEST(FormatText, ASurplusArgumentIsIgnored)
{
    EXPECT_EQ(FormatText(OLESTR("%d"), 1, 2, OLESTR("three")), OLESTR("1"));
    EXPECT_EQ(FormatText(OLESTR(""), 1), OLESTR(""));
}

TEST(FormatText, AnArgumentOfTheOtherKindPrintsInItsOwnWay)
{
    EXPECT_EQ(FormatText(OLESTR("%s: %d"), -12, OLESTR("text")), OLESTR("-12: text"));
    EXPECT_EQ(FormatText(OLESTR("%08x|"), OLESTR("text")), OLESTR("text|"));
}

TEST(FormatText, WhatIsNoConversionIsCopiedAndTakesNoArgument)
{
    EXPECT_EQ(FormatText(OLESTR("%n %f %5s %ls %q %lq %-5d %s"), 1), OLESTR("%n %f %5s %ls %q %lq %-5d 1"));
    EXPECT_EQ(FormatText(OLESTR("100%")), OLESTR("100%"));
    EXPECT_EQ(FormatText(OLESTR("%08"), 1), OLESTR("%08"));
    EXPECT_EQ(FormatText(OLESTR("%l"), 1), OLESTR("%l"));
    EXPECT_EQ(FormatText(OLESTR("%5%%d"), 1), OLESTR("%5%d"));
}

TEST(FormatText, AnAbsurdWidthIsNoConversion)
{
    EXPECT_EQ(FormatText(OLESTR("%99999999999999999999d|%2000d"), 1), OLESTR("%99999999999999999999d|%2000d"));
    EXPECT_EQ(FormatText(OLESTR("%1023d"), 1).size(), 1023U);
}

TEST(FormatText, ArgumentsAreNotReadAsFormats)
{
    EXPECT_EQ(FormatText(OLESTR("%s%s"), OLESTR("%s%d%n"), OLESTR("!")), OLESTR("%s%d%n!"));
}

struct Buffer {
    OLECHAR units[kMessageUnits];

    Buffer() { std::fill(std::begin(units), std::end(units), OLECHAR{'#'}); }
    TextView Read() const { return units; }
};

TEST(BoundedText, AMessageThatFitsIsWhole)
{
    Buffer buffer;
    const Text longest(1023, OLECHAR{'m'});
    FormatMessageText(buffer.units, OLESTR("%s"), longest);
    EXPECT_EQ(buffer.Read(), longest);
    FormatMessageText(buffer.units, OLESTR("%d"), 12);
    EXPECT_EQ(buffer.Read(), OLESTR("12"));
}

TEST(BoundedText, ATooLongMessageEndsInThreeDotsAndALineEnd)
{
    for (const std::size_t length : {1024U, 1025U, 5000U}) {
        Buffer buffer;
        FormatMessageText(buffer.units, OLESTR("%s"), Text(length, OLECHAR{'m'}));
        EXPECT_EQ(buffer.Read(), Text(1018, OLECHAR{'m'}) + OLESTR("...\r\n"));
    }
}

TEST(BoundedText, ATooLongLocationEndsInThreeDots)
{
    Buffer buffer;
    FormatLocationText(buffer.units, OLESTR("%s(%d)"), Text(5000, OLECHAR{'f'}), 12);
    EXPECT_EQ(buffer.Read(), Text(1020, OLECHAR{'f'}) + OLESTR("..."));
}

} // namespace
