#include "platform/com/SystemText.h"

#include <gtest/gtest.h>

namespace {

constexpr const OLECHAR* kNoText = OLESTR("Error Formatting Last Error");

TEST(SystemText, IsEmptyForSuccess)
{
    EXPECT_EQ(SystemText(0), OLESTR(""));
}

TEST(SystemText, SaysSoWhenTheSystemHasNoTextForACode)
{
    EXPECT_EQ(SystemText(static_cast<HRESULT>(0xA0001234)), kNoText);
}

TEST(SystemText, EndsInTheSystemsLineEnd)
{
    const Text text = SystemText(E_INVALIDARG);
    EXPECT_NE(text, kNoText);
    EXPECT_TRUE(text.ends_with(OLESTR("\r\n")));
}

TEST(SystemText, KnowsRunningOutOfMemory)
{
    EXPECT_NE(SystemText(E_OUTOFMEMORY), kNoText);
}

} // namespace
