// The codec of saved records, without a collection.
#include "core/SavedRecord.h"

#include <gtest/gtest.h>

namespace {

Text Encoded(const SavedRecord& record)
{
    TextBuffer out;
    AppendRecord(out, record);
    return Text(out.View());
}

TEST(SavedRecords, AreWrittenBehindWhatStandsThere)
{
    TextBuffer out;
    out.Append(OLESTR("~ahead|"));
    AppendRecord(out, {.id = 0x1a, .flags = kSavedVisible, .type = E_PROP_DT_STRING_ANSI, .value = OLESTR("a~b")});
    EXPECT_EQ(out.View(), OLESTR("~ahead|~1ah5a\\$b"));
}

TEST(SavedRecords, HoldTheLargestNumbersOfTheirHead)
{
    EXPECT_EQ(
        Encoded({.id = -1, .flags = kSavedEditFlags, .editFlags = -1, .type = E_PROP_DT_LONG, .value = OLESTR("1")}),
        OLESTR("~ffffffffkFFFFFFFF|31"));
}

TEST(SavedRecords, EscapeAsTheTypeAsks)
{
    const TextView value = OLESTR("a~\r\n|b\r");
    const auto encoded = [&](LONG type) { return Encoded({.id = 1, .type = type, .value = value}).substr(4); };
    EXPECT_EQ(encoded(E_PROP_DT_STRING_ANSI), OLESTR("a\\$\r\n\\&b\r"));
    EXPECT_EQ(encoded(E_PROP_DT_MULTI_STRING_UNICODE), OLESTR("a\\$#\\&b\r"));
    EXPECT_EQ(encoded(E_PROP_DT_SCAN_PATH_LIST), OLESTR("a~#|b\r"));
    EXPECT_EQ(encoded(E_PROP_DT_LINEAR), value);
}

TEST(SavedRecords, EndTheirIdAtTheFirstLetterBehindTheHexadecimalOnes)
{
    SavedRecord record;
    EXPECT_EQ(ParseRecordVersion1(OLESTR("abcdefG35"), record), E_PROP_PARSE_ERROR_NONE);
    EXPECT_EQ(record.id, 0xABCDEF);
    EXPECT_EQ(record.flags, 0U);
    EXPECT_EQ(ParseRecordVersion1(OLESTR("1zZ5"), record), E_PROP_PARSE_ERROR_NONE);
    EXPECT_EQ(record.id, 1);
    EXPECT_EQ(record.flags, 3U);
    for (const OLECHAR letter : {OLECHAR{'`'}, OLECHAR{'{'}, OLECHAR{'@'}, OLECHAR{'['}, OLECHAR{0x7A7A}})
        EXPECT_EQ(ParseRecordVersion1(Text(OLESTR("1")) + letter, record),
                  E_V1_PROP_PARSE_ERROR_INVALID_PROPERTY_STRING);
}

TEST(SavedRecords, TellThatTheyMayHoldAnEscape)
{
    EXPECT_FALSE(HasEscapes(OLESTR("1h5plain text without any")));
    EXPECT_TRUE(HasEscapes(OLESTR("1h5a text with one at its end\\$")));
}

} // namespace
