#include "platform/com/Ole.h"

#include <gtest/gtest.h>

namespace {

constexpr GUID kSample = {0x88611DE3, 0x7726, 0x4136, {0x8A, 0xF4, 0x0D, 0x02, 0xE7, 0x16, 0xD1, 0xD3}};
constexpr const OLECHAR* kSampleText = OLESTR("{88611DE3-7726-4136-8AF4-0D02E716D1D3}");

TEST(Guid, IsWrittenInCapitalsWithinBraces)
{
    OLECHAR text[39];
    EXPECT_EQ(StringFromGUID2(kSample, text, 39), 39);
    EXPECT_EQ(TextView(text), kSampleText);
}

TEST(Guid, IsNotWrittenIntoTooLittleRoom)
{
    OLECHAR text[38]{};
    EXPECT_EQ(StringFromGUID2(kSample, text, 38), 0);
    EXPECT_EQ(text[0], 0);
}

TEST(Guid, IsReadInEitherCase)
{
    GUID guid{};
    EXPECT_EQ(CLSIDFromString(kSampleText, &guid), S_OK);
    EXPECT_EQ(guid, kSample);
    EXPECT_EQ(CLSIDFromString(OLESTR("{88611de3-7726-4136-8af4-0d02e716d1d3}"), &guid), S_OK);
    EXPECT_EQ(guid, kSample);
}

TEST(Guid, IsNotReadFromADamagedText)
{
    for (const OLECHAR* text :
         {OLESTR("{88611DE3-7726-4136-8AF4-0D02E716D1D3"), OLESTR("{88611DE3-7726-4136-8AF4-0D02E716D1D3} "),
          OLESTR("{88611DE3-7726-4136-8AF4-0D02E716D1DG}"), OLESTR("{88611DE3 7726-4136-8AF4-0D02E716D1D3}"),
          OLESTR("{"), OLESTR("")}) {
        GUID guid{};
        EXPECT_EQ(CLSIDFromString(text, &guid), CO_E_CLASSSTRING);
    }
}

TEST(Guid, OfNoTextIsAllZero)
{
    GUID guid = kSample;
    EXPECT_EQ(CLSIDFromString(nullptr, &guid), S_OK);
    EXPECT_EQ(guid, GUID_NULL);
}

TEST(Guid, ComparesByValueAndTakesNullForAllZero)
{
    GUID one = kSample;
    GUID same = kSample;
    GUID zero{};
    RPC_STATUS status = -1;
    EXPECT_TRUE(UuidEqual(&one, &same, &status));
    EXPECT_EQ(status, RPC_S_OK);
    EXPECT_FALSE(UuidEqual(&one, &zero, &status));
    EXPECT_TRUE(UuidEqual(nullptr, &zero, &status));
}

} // namespace
