#include "frame/StringTable.h"
#include "StringsFile.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using ::testing::ElementsAreArray;
using ::testing::SizeIs;

TEST(StringTable, HoldsTheIdsThatTheServerAndItsLanguageLibrariesPromise)
{
    std::vector<UINT> expected = {101, 102, 103, 104, 105, 7006, 7007, 7008, 7011};
    for (UINT id = 32000; id <= 32038; ++id)
        expected.push_back(id);

    std::vector<UINT> ids;
    for (const StringBlock& block : ReadStringsFile())
        ids.push_back(block.id);
    EXPECT_THAT(ids, ElementsAreArray(expected));
}

TEST(StringTable, SaysEverythingInEveryLanguage)
{
    for (const StringBlock& block : ReadStringsFile()) {
        for (const std::string& language : kLanguageCodes)
            EXPECT_TRUE(block.texts.count(language)) << block.id << ' ' << language;
        EXPECT_THAT(block.texts, SizeIs(kLanguageCodes.size())) << block.id;
    }
}

TEST(StringTable, HasTheSamePlaceholdersInTheSameOrderInEveryLanguage)
{
    for (const StringBlock& block : ReadStringsFile()) {
        for (const auto& [language, text] : block.texts)
            EXPECT_EQ(PlaceholdersOf(text), PlaceholdersOf(block.texts.at("EN"))) << block.id << ' ' << language;
    }
}

TEST(StringTable, HoldsNoByteThatIsNotText)
{
    for (const StringBlock& block : ReadStringsFile()) {
        for (const auto& [language, text] : block.texts) {
            EXPECT_EQ(text.find(OLECHAR{0xFFFD}), Text::npos) << block.id << ' ' << language;
            const auto isStray = [](OLECHAR c) { return (c < OLESTR(' ') && c != OLESTR('\r') && c != OLESTR('\n')); };
            EXPECT_TRUE(std::none_of(text.begin(), text.end(), isStray)) << block.id << ' ' << language;
        }
    }
}

TEST(StringTable, KeepsTheMarksOfPropertyNamesOutOfTheCategoryNames)
{
    for (const StringBlock& block : ReadStringsFile()) {
        if (block.id != 32035 && block.id != 32036)
            continue;
        for (const auto& [language, text] : block.texts)
            EXPECT_EQ(text.find_first_of(OLESTR("()[]|~")), Text::npos) << block.id << ' ' << language;
    }
}

TEST(StringTable, IsTheServersOwnTableInEnglishButForTheFramesMessages)
{
    std::vector<StringBlock> expected;
    for (const StringBlock& block : ReadStringsFile()) {
        if (block.id < 7000 || block.id >= 8000)
            expected.push_back(block);
    }
    ASSERT_EQ(kOwnStringCount, expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(kOwnStrings[i].id, expected[i].id);
        EXPECT_EQ(TextView(kOwnStrings[i].text), expected[i].texts.at("EN"));
    }
}

struct GivenText {
    UINT id;
    const OLECHAR* text;
};

// Hosts and saved data know these texts as they stand.
constexpr GivenText kGivenTexts[] = {
    {32000, OLESTR("The stream is empty!")},
    {32001, OLESTR("Default True Position")},
    {32002, OLESTR("Error")},
    {32003, OLESTR("Colours")},
    {32004, OLESTR("Category contains properties that are in error")},
    {32005, OLESTR("Help information")},
    {32007, OLESTR("Default")},
    {32008, OLESTR("None")},
    {32009, OLESTR("Default Rectangular")},
    {32010, OLESTR("No Visible Properties to Display")},
    {32012, OLESTR("Warning")},
    {32013, OLESTR("This property is in error for one or more of the statements in this selection.")},
    {32014, OLESTR("Error: %s")},
    {32015, OLESTR("%i path points")},
    {32016, OLESTR("Category contains properties that have warnings.")},
    {32035, OLESTR("Unused saved data")},
    {32036, OLESTR("Mismatched saved data")},
    {32037, OLESTR("Property %i expected data type is '%s' (saved data type is '%s')")},
    {32038, OLESTR("Property %i is no longer in use (saved data type is '%s')")},
};

TEST(StringTable, GivesTheKnownTextsAsTheyStand)
{
    for (const GivenText& given : kGivenTexts) {
        const auto* end = kOwnStrings + kOwnStringCount;
        const auto* row = std::find_if(kOwnStrings, end, [&](const StringRow& r) { return r.id == given.id; });
        ASSERT_NE(row, end) << given.id;
        EXPECT_EQ(TextView(row->text), given.text);
    }
}

} // namespace
