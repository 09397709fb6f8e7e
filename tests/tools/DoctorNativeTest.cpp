// Natively the classes are part of the tool, and nothing in a folder of Windows files can be tried.
#include "tests/tools/HostFolder.h"
#include "tests/tools/ToolFixture.h"

using testing::IsEmpty;
using testing::SizeIs;

TEST(DoctorHere, MakesTheClassesThatNeedNoWindows)
{
    const HostFolder host; // keeps the user's settings out
    const ToolResult result = RunLvprop({"doctor", "--json"});
    EXPECT_EQ(result.status, 0) << result.out << result.err;
    const nlohmann::json answer = nlohmann::json::parse(result.out, nullptr, false);
    EXPECT_THAT(answer["faults"], IsEmpty());
    EXPECT_THAT(answer["classes"], SizeIs(6));
    for (const auto& made : answer["classes"])
        EXPECT_EQ(made["state"], "made") << made["name"];
}

TEST(DoctorHere, TellsALanguageThatIsNone)
{
    const HostFolder host;
    host.Write("Settings.ini", "[System]\nCurrentLanguage=7018\n");
    const ToolResult result = RunLvprop({"doctor", "--json"});
    EXPECT_EQ(result.status, 1) << result.out << result.err;
    const nlohmann::json faults = nlohmann::json::parse(result.out, nullptr, false)["faults"];
    ASSERT_THAT(faults, SizeIs(1));
    EXPECT_EQ(faults[0]["kind"], "unknown-language");
}

TEST(DoctorHere, TakesTheFilesOfAFolderAtTheirWord)
{
    const HostFolder host;
    const ToolResult result = RunLvprop({"doctor", host.Path(), "--json"});
    EXPECT_EQ(result.status, 0) << result.out << result.err;
    const nlohmann::json answer = nlohmann::json::parse(result.out, nullptr, false);
    EXPECT_THAT(answer["classes"], SizeIs(11));
    for (const auto& found : answer["classes"])
        EXPECT_EQ(found["state"], "in place") << found["name"];
}
