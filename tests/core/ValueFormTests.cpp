// The forms in which the text of a value is kept, without a property around them.
#include "core/ValueText.h"
#include "frame/NumberText.h"

#include <gtest/gtest.h>

namespace {

using Form = ValueText::Form;

const ValueText kEachForm[] = {ValueText::OfText(OLESTR("text")),       ValueText::OfNumber(-12.5, 4),
                               ValueText::OfNumber(1e300, 3),           ValueText::OfNumber(2, 30),
                               ValueText::OfPosition({1, -2.25, 3}, 4), ValueText::OfPosition({1e40, 0, 1e16}, 2),
                               ValueText::OfPosition({0, 0, 0}, 4),     ValueText::OfSigned(-2147483647 - 1),
                               ValueText::OfUnsigned(4294967295U),      ValueText()};

TEST(ValueForms, GoIntoABufferAsIntoAText)
{
    Text all;
    TextBuffer buffer;
    for (const ValueText& value : kEachForm) {
        value.AppendTo(all);
        value.AppendTo(buffer);
    }
    EXPECT_EQ(buffer.View(), all);
    EXPECT_TRUE(all.starts_with(OLESTR("text-12.51000000"))) << std::string(all.begin(), all.end());
    EXPECT_TRUE(all.ends_with(OLESTR("0;0;0-21474836484294967295"))) << std::string(all.begin(), all.end());
}

TEST(ValueForms, AreCopiedAndMovedWithTheirText)
{
    for (const ValueText& value : kEachForm) {
        ValueText copy(value);
        EXPECT_TRUE(copy.Equals(value));
        const ValueText moved(std::move(copy));
        EXPECT_EQ(moved.ToText(), value.ToText());
        ValueText assigned = ValueText::OfPosition({7, 8, 9}, 1);
        assigned = moved;
        EXPECT_EQ(assigned.ToText(), value.ToText());
        EXPECT_EQ(assigned.GetForm(), value.GetForm());
    }
}

TEST(ValueForms, KnowThePositionTheyWereMadeOf)
{
    const SprpPosition position{1, -2.25, 3};
    const ValueText value = ValueText::OfPosition(position, 4);
    EXPECT_TRUE(value.IsPosition(position, 4));
    EXPECT_FALSE(value.IsPosition(position, 3));
    EXPECT_FALSE(value.IsPosition({1, -2.25, 4}, 4));
    EXPECT_FALSE(ValueText::OfText(OLESTR("1;-2.25;3")).IsPosition(position, 4));
    EXPECT_FALSE(ValueText().IsPosition({0, 0, 0}, 4));
    EXPECT_TRUE(ValueText::OfPosition({0, 0, 0}, 4).IsPosition({0, 0, 0}, 4));
    EXPECT_FALSE(ValueText::OfPosition({0, 0, 0}, 4).IsPosition({-0.0, 0, 0}, 4));
}

} // namespace
