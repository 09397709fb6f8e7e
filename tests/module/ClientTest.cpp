// A host in a process of its own, in a folder to which the components were copied; nothing is registered.
#include "ComponentFolder.h"
#include "tests/lang/StringsFile.h"

#include <gmock/gmock.h>

#include <sstream>

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kAvailable = "00000000";
constexpr const char* kNotAvailable = "80040111"; // CLASS_E_CLASSNOTAVAILABLE

struct LanguageOfHost {
    std::string setting;
    std::string code;
};

const LanguageOfHost kLanguagesOfHost[] = {{"7014", "EN"}, {"7015", "DE"}, {"7016", "FR"}, {"7017", "IT"},
                                           {"7031", "ES"}, {"7039", "JP"}, {"7058", "KO"}, {"7059", "TC"},
                                           {"7060", "SC"}, {"7061", "CZ"}};

std::string Utf8(TextView text)
{
    std::string out(3 * text.size(), '\0');
    out.resize(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(),
                                                     static_cast<int>(out.size()), nullptr, nullptr)));
    return out;
}

/// The words ahead of the first placeholder of a message.
std::string BeginningOf(UINT id, const std::string& language)
{
    for (const StringBlock& block : ReadStringsFile()) {
        if (block.id == id)
            return Utf8(TextView(block.texts.at(language)).substr(0, block.texts.at(language).find(OLESTR('%'))));
    }
    return "no such string";
}

std::string LibraryOf(const std::string& code)
{
    return "LV_resResources_" + code + ".dll";
}

TEST(Client, MakesEveryClassByProgIdInACopiedFolder)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    const ClientRun run = folder.RunHosted("classes");
    EXPECT_EQ(run.exitCode, 0u) << run.output;
    for (const char* name : {"prpProperty", "prpPropertyCollection", "prpHelpInfo", "prpVisibilityInfo",
                             "prpCollectionViewerCtrl", "strStream", "setSettings"}) {
        EXPECT_EQ(run.Value(std::string("Tolvarin.") + name), kAvailable) << name;
        EXPECT_EQ(run.Value(std::string("Tolvarin.") + name + ".1"), kAvailable) << name;
    }
}

TEST(Client, FindsNoClassInThatFolderWithoutTheManifest)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    const ClientRun run = folder.Run("classes");
    for (const char* name : {"prpProperty", "prpPropertyCollection", "prpHelpInfo", "prpVisibilityInfo", "strStream"})
        EXPECT_EQ(run.Value(std::string("Tolvarin.") + name), "800401F3") << name << ": nothing is registered";
}

/// The manifest that the guide shows to host developers.
std::string ManifestOfTheGuide()
{
    std::ifstream in(LV_GUIDE, std::ios::binary);
    const std::string guide{std::istreambuf_iterator<char>(in), {}};
    const std::string opening = "```xml\n<assembly";
    const std::size_t begin = guide.find(opening);
    EXPECT_NE(begin, std::string::npos);
    const std::size_t text = begin + opening.find('<');
    return guide.substr(text, guide.find("```", text) - text);
}

TEST(Client, MakesTheClassesByTheManifestOfTheGuideBesideItsProgram)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    std::ofstream(folder.Path() / "component_client.exe.manifest", std::ios::binary) << ManifestOfTheGuide();
    const ClientRun run = folder.Run("slice");
    EXPECT_EQ(run.exitCode, 0u) << run.output;
    EXPECT_TRUE(run.Has("saved: ~al1|s~14l1|212.5")) << run.output;
}

TEST(Client, KeepsLocaleAndLanguageThroughARegistration)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    folder.Copy(LibraryOf("FR"));
    folder.SetLanguage("7016");
    const ClientRun run = folder.RunHosted("registration");
    EXPECT_EQ(run.exitCode, 0u) << run.output;
    EXPECT_TRUE(run.Has("DllRegisterServer: 00000000")) << run.output;
    EXPECT_TRUE(run.Has("DllUnregisterServer: 00000000")) << run.output;
    const std::string usage = " | " + BeginningOf(7011, "FR");
    std::size_t locales = 0;
    std::size_t usages = 0;
    std::istringstream lines(run.output);
    for (std::string line; std::getline(lines, line);) {
        locales += line == "locale: 0407";
        usages += line.starts_with("usage: ") && line.find(usage) != std::string::npos;
    }
    EXPECT_EQ(locales, 2u) << run.output;
    EXPECT_EQ(usages, 2u) << run.output;
}

TEST(Client, IsToldThatTheValueViewersAreNotAvailable)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    const ClientRun run = folder.RunHosted("classes");
    for (const char* name : {"prpInfoViewer", "prpGDTViewer", "prpLinearTolViewer", "prpPositionViewer"})
        EXPECT_EQ(run.Value(std::string("Tolvarin.") + name), kNotAvailable) << name;
}

TEST(Client, BuildsATreeHearsItsEventsAndSavesIt)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    const ClientRun run = folder.RunHosted("slice");
    EXPECT_EQ(run.exitCode, 0u) << run.output;
    EXPECT_EQ(run.output, "property: Probing = \n"
                          "property: Depth = 12.5\n"
                          "saved: ~al1|s~14l1|212.5\n"
                          "event: 2 10\n"
                          "event: 2 20\n"
                          "event: 1 20\n");
}

TEST(Client, ShowsACollectionByTheNameOfTheGridInThePlatformsContainer)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    const ClientRun run = folder.RunHosted("grid");
    EXPECT_EQ(run.exitCode, 0u) << run.output;
    EXPECT_EQ(run.output, "container: 1\n"
                          "rows: 2\n"
                          "size: 300 x 200\n"
                          "selected: 12.5\n"
                          "can unload: 1\n");
}

class ClientLanguage : public testing::TestWithParam<LanguageOfHost> {};

TEST_P(ClientLanguage, HearsItsErrorsInTheLanguageOfTheSettings)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    folder.Copy(LibraryOf(GetParam().code));
    folder.SetLanguage(GetParam().setting);
    const ClientRun run = folder.RunHosted("language");
    EXPECT_EQ(run.Value("boxes"), "0") << run.output;
    EXPECT_THAT(run.Value("internal"), StartsWith(BeginningOf(7006, GetParam().code) + "prpProperty"));
    EXPECT_THAT(run.Value("usage"), HasSubstr(" | " + BeginningOf(7011, GetParam().code) + "prpProperty"));
    EXPECT_EQ(run.Value("library"), LibraryOf(GetParam().code));
}

TEST_P(ClientLanguage, IsToldOnceThatItsLibraryIsMissing)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    folder.Copy(LibraryOf(GetParam().code == "EN" ? "DE" : "EN"));
    folder.SetLanguage(GetParam().setting);
    const ClientRun run = folder.RunHosted("language");
    EXPECT_EQ(run.Value("boxes"), "1") << run.output;
    EXPECT_EQ(run.Value("box"),
              "Lumevor Error: Unable to find the language DLL: " + LibraryOf(GetParam().code) + ". Please re-install");
    EXPECT_THAT(run.Value("internal"), StartsWith("Internal error in prpProperty"));
    EXPECT_THAT(run.Value("usage"), HasSubstr("Failed to load string 7011 from the resource dll"));
}

INSTANTIATE_TEST_SUITE_P(All, ClientLanguage, testing::ValuesIn(kLanguagesOfHost),
                         [](const testing::TestParamInfo<LanguageOfHost>& language) { return language.param.code; });

TEST(Client, IsWarnedOnceOfAnUnknownLanguageAndHearsEnglish)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    folder.Copy(LibraryOf("EN"));
    folder.SetLanguage("7018");
    const ClientRun run = folder.RunHosted("language");
    EXPECT_EQ(run.Value("boxes"), "1") << run.output;
    EXPECT_EQ(run.Value("box"), "Lumevor Error: Failed to read selected language. Using default language instead.");
    EXPECT_THAT(run.Value("usage"), HasSubstr(" | " + BeginningOf(7011, "EN")));
    EXPECT_EQ(run.Value("library"), LibraryOf("EN"));
}

TEST(Client, HearsLiteralTextsInSilenceWithoutASettingsComponent)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream"});
    folder.Copy(LibraryOf("EN"));
    folder.Copy(LibraryOf("DE"));
    folder.SetLanguage("7015");
    const ClientRun run = folder.RunHosted("language");
    EXPECT_EQ(run.Value("boxes"), "0") << run.output;
    EXPECT_THAT(run.Value("internal"), StartsWith("Internal error in prpProperty"));
    EXPECT_THAT(
        run.Value("usage"),
        HasSubstr(" | Failed to load string 7011 from the resource dll - you may have to re-install the program"));
}

TEST(Client, HearsEnglishInSilenceWhileTheSettingsHoldNoLanguage)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    folder.Copy(LibraryOf("EN"));
    const ClientRun run = folder.RunHosted("language");
    EXPECT_EQ(run.Value("boxes"), "0") << run.output;
    EXPECT_THAT(run.Value("usage"), HasSubstr(" | " + BeginningOf(7011, "EN")));
    EXPECT_EQ(run.Value("library"), LibraryOf("EN"));
}

TEST(Client, SeesTheServerGoWithItsLastObjectAndComeAgain)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    const ClientRun run = folder.RunHosted("unload");
    EXPECT_EQ(run.exitCode, 0u) << run.output;
    EXPECT_EQ(run.output, "before: 0\n"
                          "object: 0\n"
                          "in use: 1\n"
                          "no object: 1\n"
                          "after: 0\n"
                          "again: 1\n");
}

TEST(Client, KeepsTheServerWhileAnotherThreadDeliversItsEvents)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    const ClientRun run = folder.RunHosted("unload-beside-thread");
    EXPECT_EQ(run.exitCode, 0u) << run.output;
    EXPECT_EQ(run.output, "can unload beside it: 0\n"
                          "beside it: 1\n"
                          "can unload after it: 1\n"
                          "after it: 0\n");
}

TEST(Client, MayEndWhileAnotherThreadHoldsACollection)
{
    ComponentFolder folder;
    folder.Install({"PropertyCollection", "Stream", "Settings"});
    const ClientRun run = folder.RunHosted("exit-beside-thread");
    EXPECT_EQ(run.exitCode, 0u) << run.output;
    EXPECT_EQ(run.output, "leaving\n");
}

} // namespace
