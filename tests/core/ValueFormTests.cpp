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

TEST(ValueForms, GiveTheirOwnFormForTheTextTheyRender)
{
    for (const ValueText& value :
         {ValueText::OfNumber(-12.5, 4), ValueText::OfNumber(0, 0), ValueText::OfPosition({1, -2.25, 3}, 4),
          ValueText::OfPosition({0, 0, 0}, 4), ValueText::OfSigned(-5), ValueText::OfUnsigned(4294967295U)}) {
        const Text text = value.ToText();
        const std::optional<ValueText> again = value.Reread(text);
        ASSERT_TRUE(again) << std::string(text.begin(), text.end());
        EXPECT_EQ(again->GetForm(), value.GetForm());
        EXPECT_EQ(again->Decimals(), value.Decimals());
        EXPECT_EQ(again->ToText(), text);
    }
}

TEST(ValueForms, GiveNoneForATextThatTheyWouldRenderOtherwise)
{
    const auto refuses = [](const ValueText& form, std::initializer_list<const OLECHAR*> texts) {
        for (const TextView text : texts)
            EXPECT_FALSE(form.Reread(text)) << std::string(text.begin(), text.end());
    };
    refuses(ValueText::OfText(OLESTR("1")), {OLESTR("1"), OLESTR("")});
    refuses(ValueText::OfNumber(1, 2), {OLESTR(""), OLESTR("1.50"), OLESTR("1.555"), OLESTR("1 "), OLESTR("1;2;3")});
    refuses(ValueText::OfPosition({}, 2),
            {OLESTR("1;2"), OLESTR("1;2;"), OLESTR("1;2;3;"), OLESTR("1; 2;3"), OLESTR("(1;2;3)"), OLESTR("1,2,3")});
    refuses(ValueText::OfSigned(1), {OLESTR("1.0"), OLESTR("2147483648"), OLESTR("")});
    refuses(ValueText::OfUnsigned(1), {OLESTR("-1"), OLESTR("4294967296"), OLESTR("")});
}

} // namespace
