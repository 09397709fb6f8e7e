#include "suite/settings/SettingsText.h"

#include <gmock/gmock.h>

namespace {

using ::testing::Eq;
using ::testing::Optional;

constexpr SettingsKey kLanguage{OLESTR("System"), OLESTR("CurrentLanguage")};

TEST(SettingsText, FindsAValueWhateverTheLineEndsBlanksAndLetterCase)
{
    const SettingsText settings(OLESTR("\xFEFF; a remark\n[ system ]\r\n  currentlanguage\t=  7015 \n"));
    EXPECT_THAT(settings.Find(kLanguage), Optional(Eq(OLESTR("7015"))));
    EXPECT_TRUE(settings.HasSection(OLESTR("SYSTEM")));
}

TEST(SettingsText, FindsNothingInAnotherSectionOrBehindARemarkSign)
{
    const SettingsText settings(
        OLESTR("CurrentLanguage=1\n[Other]\nCurrentLanguage=2\n[System]\n;CurrentLanguage=3\n"));
    EXPECT_EQ(settings.Find(kLanguage), std::nullopt);
    EXPECT_FALSE(settings.HasSection(OLESTR("Missing")));
}

TEST(SettingsText, TakesTheFirstOfTwoValuesWithOneName)
{
    const SettingsText settings(OLESTR("[System]\nCurrentLanguage=7014\ncurrentLANGUAGE=7015\n"));
    EXPECT_THAT(settings.Find(kLanguage), Optional(Eq(OLESTR("7014"))));
}

TEST(SettingsText, ChangesAValueWhereItStandsAndLeavesTheRestAsItWas)
{
    SettingsText settings(
        OLESTR("; mine\r\n[System]\r\nFolder=C:\\new\r\nCurrentLanguage = 7014\r\nnonsense\r\n\r\n[Z]\r\n"));
    settings.Set(kLanguage, OLESTR("7061"));
    EXPECT_EQ(settings.Write(),
              OLESTR("; mine\r\n[System]\r\nFolder=C:\\new\r\nCurrentLanguage=7061\r\nnonsense\r\n\r\n[Z]\r\n"));
}

TEST(SettingsText, AddsAValueAtTheEndOfItsSectionAheadOfTheBlankLines)
{
    SettingsText settings(OLESTR("[System]\nA=1\n\n[Z]\nB=2\n"));
    settings.Set(kLanguage, OLESTR("7014"));
    EXPECT_EQ(settings.Write(), OLESTR("[System]\r\nA=1\r\nCurrentLanguage=7014\r\n\r\n[Z]\r\nB=2\r\n"));
}

TEST(SettingsText, AddsAMissingSectionAtTheEnd)
{
    SettingsText settings;
    settings.Set(kLanguage, OLESTR("7014"));
    EXPECT_EQ(settings.Write(), OLESTR("[System]\r\nCurrentLanguage=7014\r\n"));
}

TEST(SettingsText, AddsToASectionThatHasOnlyItsHeading)
{
    SettingsText settings(OLESTR("[System]\n[Z]\n"));
    settings.Set(kLanguage, OLESTR("7014"));
    EXPECT_EQ(settings.Write(), OLESTR("[System]\r\nCurrentLanguage=7014\r\n[Z]\r\n"));
}

TEST(SettingsText, KeepsEveryTextThroughWritingAndReading)
{
    const Text values[] = {OLESTR(""),           OLESTR(" "),          OLESTR(" ends "),        OLESTR("two\r\nlines"),
                           OLESTR("\"quoted\""), OLESTR("C:\\new\\t"), OLESTR("a=b;c"),         OLESTR("[x]"),
                           OLESTR("\t"),         OLESTR("\"\\"),       OLESTR("\x4E2D\x6587 "), OLESTR("\n\\n")};
    for (const Text& value : values) {
        SettingsText settings;
        settings.Set(kLanguage, value);
        EXPECT_THAT(SettingsText(settings.Write()).Find(kLanguage), Optional(Eq(value)));
    }
}

TEST(SettingsText, TakesAWholeLineOutWithItsValue)
{
    SettingsText settings(OLESTR("[System]\nA=1\nCurrentLanguage=7014\n"));
    EXPECT_TRUE(settings.Remove(kLanguage));
    EXPECT_FALSE(settings.Remove(kLanguage));
    EXPECT_EQ(settings.Write(), OLESTR("[System]\r\nA=1\r\n"));
}

TEST(SettingsText, AcceptsAsNamesOnlyWhatTheFileCanHold)
{
    EXPECT_TRUE(SettingsText::IsName(OLESTR("Current Language")));
    for (const OLECHAR* bad : {OLESTR(""), OLESTR(" a"), OLESTR("a "), OLESTR("a=b"), OLESTR("[a"), OLESTR("a]"),
                               OLESTR("a;b"), OLESTR("a\nb")})
        EXPECT_FALSE(SettingsText::IsName(bad));
}

} // namespace
