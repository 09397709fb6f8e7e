// What the doctor finds out by asking Windows itself. Registered classes are examined by the test of the registration,
// which has a registry of its own.
#include "platform/com/Ole.h"
#include "tests/tools/HostFolder.h"
#include "tests/tools/ToolFixture.h"

#include <set>

using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::SizeIs;

namespace {

nlohmann::json Examine(const HostFolder& host, int status)
{
    const ToolResult result = RunLvprop({"doctor", host.Path(), "--json"});
    EXPECT_EQ(result.status, status) << result.out << result.err;
    return nlohmann::json::parse(result.out, nullptr, false);
}

TEST(DoctorOnWindows, MakesTheClassesOfAWholeFolder)
{
    const HostFolder host;
    std::set<std::string> made;
    const nlohmann::json answer = Examine(host, 0);
    for (const auto& tried : answer["classes"])
        if (tried["state"] == "made")
            made.insert(tried["name"].get<std::string>());
    EXPECT_THAT(made,
                IsSupersetOf({"Tolvarin.setSettings", "Tolvarin.strStream", "Tolvarin.prpProperty",
                              "Tolvarin.prpPropertyCollection", "Tolvarin.prpHelpInfo", "Tolvarin.prpVisibilityInfo"}));
}

TEST(DoctorOnWindows, TellsWhyTheSystemRefusesALibrary)
{
    const HostFolder host;
    host.Replace("LV_strStream.dll", "KERNEL32.dll", "KERNEL99.dll");
    const nlohmann::json faults = Examine(host, 1)["faults"];
    ASSERT_THAT(faults, SizeIs(1));
    EXPECT_EQ(faults[0]["kind"], "refused-library");
    EXPECT_THAT(faults[0]["reason"].get<std::string>(), HasSubstr("(error 126)"));
}

TEST(DoctorOnWindows, SeesWhenTheLibraryInPlaceIsAnother)
{
    const HostFolder host;
    // Whole, of the right machine, with a manifest that names it: only making its classes shows what it is.
    host.Write("LV_strStream.dll", ToolFiles::Read(host.File("LV_setSettings.dll")));
    const nlohmann::json faults = Examine(host, 1)["faults"];
    ASSERT_THAT(faults, SizeIs(2));
    EXPECT_EQ(faults[0]["kind"], "not-made");
    EXPECT_EQ(faults[0]["subject"], "strStream");
    EXPECT_THAT(faults[0]["reason"].get<std::string>(), HasSubstr("80040111"));
    EXPECT_EQ(faults[1]["subject"], "prpPropertyCollection") << "which makes a stream";
}

TEST(DoctorOnWindows, TellsTheLanguageOfTheSettingsAndOneThatIsNone)
{
    const HostFolder host;
    host.Write("Settings.ini", "[System]\nCurrentLanguage=7015\n");
    EXPECT_EQ(Examine(host, 0)["currentLanguage"], 7015);

    host.Write("Settings.ini", "[System]\nCurrentLanguage=7018\n");
    const nlohmann::json faults = Examine(host, 1)["faults"];
    ASSERT_THAT(faults, SizeIs(1));
    EXPECT_EQ(faults[0]["kind"], "unknown-language");
}

TEST(DoctorOnWindows, NamesEveryClassWhereNoneIsRegistered)
{
    const ToolResult result = RunLvprop({"doctor", "--json"});
    EXPECT_EQ(result.status, 1) << result.err;
    std::set<std::string> named;
    const nlohmann::json answer = nlohmann::json::parse(result.out, nullptr, false);
    for (const auto& fault : answer["faults"]) {
        EXPECT_EQ(fault["kind"], "not-registered");
        named.insert(fault["subject"].get<std::string>());
    }
    EXPECT_THAT(named, SizeIs(11));
}

} // namespace
