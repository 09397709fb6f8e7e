#include "platform/system/SystemFacts.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// A key of the local machine with values in it, gone with its scope.
class WindowsFacts : public testing::Test {
protected:
    static constexpr const OLECHAR* kKey = OLESTR("Software\\Lumevor Tests\\Facts");

    void SetUp() override
    {
        ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, kKey, 0, nullptr, 0, KEY_WRITE, nullptr, &m_key, nullptr),
                  ERROR_SUCCESS);
    }
    void TearDown() override
    {
        RegCloseKey(m_key);
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, OLESTR("Software\\Lumevor Tests"));
    }
    void SetText(const OLECHAR* name, const Text& text, std::size_t units)
    {
        ASSERT_EQ(RegSetValueExW(m_key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                 static_cast<DWORD>(units * sizeof(OLECHAR))),
                  ERROR_SUCCESS);
    }

    const SystemFacts& facts = SystemFacts::OfThisSystem();
    HKEY m_key = nullptr;
};

TEST_F(WindowsFacts, ReadATextOfTheRegistry)
{
    SetText(OLESTR("Dir"), OLESTR("C:\\support"), 11);
    EXPECT_TRUE(facts.MachineKeyExists(kKey));
    EXPECT_EQ(facts.MachineText(kKey, OLESTR("Dir"), 260), Text(OLESTR("C:\\support")));
    EXPECT_EQ(facts.MachineText(kKey, OLESTR("Other"), 260), std::nullopt);
}

TEST_F(WindowsFacts, ReadATextThatLacksItsTerminator)
{
    SetText(OLESTR("Dir"), OLESTR("C:\\support, cut here"), 10);
    EXPECT_EQ(facts.MachineText(kKey, OLESTR("Dir"), 20), Text(OLESTR("C:\\support")));
}

TEST_F(WindowsFacts, ReadNothingThatIsTooLong)
{
    const Text longest(129, OLESTR('x'));
    SetText(OLESTR("Fits"), longest, 130);
    SetText(OLESTR("Too long"), longest + OLESTR('x'), 131);
    EXPECT_EQ(facts.MachineText(kKey, OLESTR("Fits"), 260), longest);
    EXPECT_EQ(facts.MachineText(kKey, OLESTR("Too long"), 260), std::nullopt);
}

TEST_F(WindowsFacts, ListTheSubKeys)
{
    const std::vector<Text> names = facts.MachineSubKeys(OLESTR("Software\\Lumevor Tests"));
    EXPECT_EQ(names, std::vector<Text>{OLESTR("Facts")});
}

TEST_F(WindowsFacts, KnowTheCommonDocuments)
{
    ASSERT_TRUE(facts.CommonDocumentsFolder().has_value());
    EXPECT_NE(facts.CommonDocumentsFolder()->back(), OLESTR('\\'));
}

TEST_F(WindowsFacts, TellAVariableOfAnyLength)
{
    const Text value(5000, OLESTR('v'));
    SetEnvironmentVariableW(OLESTR("LV_LONG_VARIABLE"), value.c_str());
    EXPECT_EQ(facts.EnvironmentVariable(OLESTR("LV_LONG_VARIABLE")), value);
    SetEnvironmentVariableW(OLESTR("LV_LONG_VARIABLE"), nullptr);
}

} // namespace
