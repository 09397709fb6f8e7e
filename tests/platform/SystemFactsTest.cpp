#include "platform/system/SystemFacts.h"

#include <gtest/gtest.h>

namespace {

std::tm At(int year, int month, int day, int weekday, int hour, int minute, int second)
{
    std::tm time{};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_wday = weekday;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return time;
}

/// This system's answers, but for one registry key.
class OneKey final : public SystemFacts {
public:
    bool HasRegistry() const override { return true; }
    bool MachineKeyExists(const OLECHAR* key) const override { return TextView(key) == OLESTR("Software\\Known"); }
    std::vector<Text> MachineSubKeys(const OLECHAR*) const override { return {OLESTR("Sub")}; }
    std::optional<Text> MachineText(const OLECHAR*, const OLECHAR*, DWORD) const override { return OLESTR("value"); }
    std::optional<Text> CommonDocumentsFolder() const override { return OfThisSystem().CommonDocumentsFolder(); }
    std::optional<Text> EnvironmentVariable(const OLECHAR* name) const override
    {
        return OfThisSystem().EnvironmentVariable(name);
    }
    Text ProgramFileName() const override { return OfThisSystem().ProgramFileName(); }
    std::tm LocalTime() const override { return OfThisSystem().LocalTime(); }
};

TEST(SystemFacts, TellTheTimeInEnglishWords)
{
    EXPECT_EQ(LocalTimeText(At(2024, 3, 1, 5, 7, 5, 9)), OLESTR("07:05:09 Friday, March 01, 2024"));
    EXPECT_EQ(LocalTimeText(At(1999, 12, 31, 0, 23, 59, 60)), OLESTR("23:59:60 Sunday, December 31, 1999"));
}

TEST(SystemFacts, TellTheYearThatItIs)
{
    EXPECT_GE(SystemFacts::OfThisSystem().LocalTime().tm_year + 1900, 2024);
}

TEST(SystemFacts, NameTheRunningProgram)
{
    const Text name = SystemFacts::OfThisSystem().ProgramFileName();
    EXPECT_TRUE(FileNameOf(name).starts_with(OLESTR("platform_tests")))
        << "whatever the system adds to a program's name";
    EXPECT_NE(FileNameOf(name), name);
}

TEST(SystemFacts, KnowTheEnvironment)
{
    EXPECT_TRUE(SystemFacts::OfThisSystem().EnvironmentVariable(OLESTR("PATH")).has_value());
    EXPECT_FALSE(SystemFacts::OfThisSystem().EnvironmentVariable(OLESTR("LV_NO_SUCH_VARIABLE")).has_value());
}

TEST(SystemFacts, FindNoKeyThatDoesNotExist)
{
    const SystemFacts& facts = SystemFacts::OfThisSystem();
    const OLECHAR* key = OLESTR("Software\\Lumevor Tests\\No Such Key");
    EXPECT_FALSE(facts.MachineKeyExists(key));
    EXPECT_TRUE(facts.MachineSubKeys(key).empty());
    EXPECT_FALSE(facts.MachineText(key, OLESTR("Value"), 260).has_value());
}

TEST(SystemFacts, AreThoseOfAReplacementForItsScope)
{
    const OneKey replacement;
    {
        const ScopedSystemFacts scope(replacement);
        EXPECT_TRUE(SystemFacts::Current().MachineKeyExists(OLESTR("Software\\Known")));
    }
    EXPECT_EQ(&SystemFacts::Current(), &SystemFacts::OfThisSystem());
}

TEST(SystemFacts, OfNestedScopesComeBackInOrder)
{
    const OneKey outer;
    const OneKey inner;
    const ScopedSystemFacts outerScope(outer);
    {
        const ScopedSystemFacts innerScope(inner);
        EXPECT_EQ(&SystemFacts::Current(), &inner);
    }
    EXPECT_EQ(&SystemFacts::Current(), &outer);
}

TEST(FileName, IsWhatStandsBehindTheLastSeparator)
{
    EXPECT_EQ(FileNameOf(OLESTR("C:\\hosts\\planner.exe")), OLESTR("planner.exe"));
    EXPECT_EQ(FileNameOf(OLESTR("/usr/bin/planner")), OLESTR("planner"));
    EXPECT_EQ(FileNameOf(OLESTR("planner.exe")), OLESTR("planner.exe"));
    EXPECT_EQ(FileNameOf(OLESTR("folder\\")), OLESTR(""));
    EXPECT_EQ(FileNameOf(OLESTR("")), OLESTR(""));
}

} // namespace
