#include "platform/com/Ole.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <thread>
#include <vector>

namespace {

TextView View(BSTR bstr)
{
    return {bstr, SysStringLen(bstr)};
}

UINT PrefixOf(BSTR bstr)
{
    UINT bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const char*>(bstr) - sizeof bytes, sizeof bytes);
    return bytes;
}

TEST(Bstr, CarriesItsByteCountInFourBytesAheadOfTheText)
{
    BSTR const bstr = SysAllocString(OLESTR("true position"));
    EXPECT_EQ(PrefixOf(bstr), 26u);
    EXPECT_EQ(SysStringByteLen(bstr), 26u);
    EXPECT_EQ(SysStringLen(bstr), 13u);
    EXPECT_EQ(bstr[13], 0);
    SysFreeString(bstr);
}

TEST(Bstr, KeepsNullCharactersWhenTheLengthIsGiven)
{
    const Text text(OLESTR("a\0b"), 3);
    BSTR const bstr = SysAllocStringLen(text.data(), 3);
    EXPECT_EQ(View(bstr), text);
    SysFreeString(bstr);
}

TEST(Bstr, MayBeEmptyWithoutBeingNull)
{
    BSTR const bstr = SysAllocString(OLESTR(""));
    ASSERT_NE(bstr, nullptr);
    EXPECT_EQ(SysStringLen(bstr), 0u);
    EXPECT_EQ(bstr[0], 0);
    SysFreeString(bstr);
}

TEST(Bstr, IsNullWhenMadeOfNull)
{
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
}

TEST(Bstr, OfNullHasNoLengthAndMayBeFreed)
{
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    EXPECT_EQ(SysStringByteLen(nullptr), 0u);
    SysFreeString(nullptr);
}

TEST(Bstr, GivesRoomForAGivenLengthWithoutASource)
{
    BSTR const bstr = SysAllocStringLen(nullptr, 4);
    ASSERT_NE(bstr, nullptr);
    for (int i = 0; i < 4; ++i)
        bstr[i] = OLESTR('x');
    EXPECT_EQ(View(bstr), OLESTR("xxxx"));
    EXPECT_EQ(bstr[4], 0);
    SysFreeString(bstr);
}

TEST(Bstr, OfAnOddNumberOfBytesKeepsThemAndEndsInAWholeTerminator)
{
    BSTR const bstr = SysAllocStringByteLen("abc", 3);
    EXPECT_EQ(SysStringByteLen(bstr), 3u);
    EXPECT_EQ(SysStringLen(bstr), 1u);
    EXPECT_EQ(std::memcmp(bstr, "abc\0\0\0", 6), 0);
    SysFreeString(bstr);
}

TEST(Bstr, IsNullForALengthBeyondItsPrefix)
{
    EXPECT_EQ(SysAllocStringLen(nullptr, std::numeric_limits<UINT>::max()), nullptr);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0x80000000u), nullptr);
    EXPECT_EQ(SysAllocStringByteLen(nullptr, std::numeric_limits<UINT>::max()), nullptr);
}

TEST(Bstr, IsReplacedByATextThatLiesWithinIt)
{
    BSTR bstr = SysAllocString(OLESTR("flatness"));
    EXPECT_TRUE(SysReAllocString(&bstr, bstr + 4));
    EXPECT_EQ(View(bstr), OLESTR("ness"));
    SysFreeString(bstr);
}

TEST(Bstr, KeepsItsBeginningWhenItGrowsWithoutASource)
{
    BSTR bstr = SysAllocString(OLESTR("abc"));
    EXPECT_TRUE(SysReAllocStringLen(&bstr, nullptr, 5));
    EXPECT_EQ(SysStringLen(bstr), 5u);
    EXPECT_EQ(View(bstr).substr(0, 3), OLESTR("abc"));
    EXPECT_TRUE(SysReAllocStringLen(&bstr, nullptr, 2));
    EXPECT_EQ(View(bstr), OLESTR("ab"));
    SysFreeString(bstr);
}

TEST(Bstr, StaysAsItWasWhenThereIsNoRoomForItsSuccessor)
{
    BSTR bstr = SysAllocString(OLESTR("kept"));
    EXPECT_FALSE(SysReAllocStringLen(&bstr, nullptr, 0x80000000u));
    EXPECT_EQ(View(bstr), OLESTR("kept"));
    EXPECT_FALSE(SysReAllocStringLen(nullptr, OLESTR("x"), 1));
    SysFreeString(bstr);
}

TEST(Bstr, MayBeFreedByAnotherThread)
{
    std::vector<BSTR> texts;
    for (int i = 0; i < 1000; ++i)
        texts.push_back(SysAllocString(OLESTR("moved")));
    std::thread([&] {
        for (BSTR const text : texts) {
            EXPECT_EQ(View(text), OLESTR("moved"));
            SysFreeString(text);
        }
    }).join();
}

} // namespace
