#include "platform/system/SystemFacts.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

TEST(NativeFacts, HaveNoRegistryAndNoFolders)
{
    const SystemFacts& facts = SystemFacts::OfThisSystem();
    EXPECT_FALSE(facts.HasRegistry());
    EXPECT_FALSE(facts.MachineKeyExists(OLESTR("Software")));
    EXPECT_FALSE(facts.CommonDocumentsFolder().has_value());
}

TEST(NativeFacts, TellAnEmptyVariableFromAMissingOne)
{
    setenv("LV_EMPTY_VARIABLE", "", 1);
    EXPECT_EQ(SystemFacts::OfThisSystem().EnvironmentVariable(OLESTR("LV_EMPTY_VARIABLE")), Text());
    unsetenv("LV_EMPTY_VARIABLE");
    EXPECT_EQ(SystemFacts::OfThisSystem().EnvironmentVariable(OLESTR("LV_EMPTY_VARIABLE")), std::nullopt);
}

} // namespace
