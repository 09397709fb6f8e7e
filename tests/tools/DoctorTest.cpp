// The doctor as a process, on a folder with one thing wrong in it.
#include "tests/tools/HostFolder.h"
#include "tests/tools/PeBytes.h"
#include "tests/tools/ToolFixture.h"

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

using Strings = std::vector<std::string>;

class Doctor : public testing::Test {
protected:
    HostFolder host;

    nlohmann::json Examine(int status, Strings options = {}) const
    {
        Strings arguments = {"doctor", host.Path(), "--json"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const ToolResult result = RunLvprop(arguments);
        EXPECT_EQ(result.status, status) << result.out << result.err;
        EXPECT_THAT(result.err, IsEmpty());
        return nlohmann::json::parse(result.out, nullptr, false);
    }

    /// The one fault of the folder.
    nlohmann::json TheFault(Strings options = {}) const
    {
        const nlohmann::json answer = Examine(1, std::move(options));
        EXPECT_THAT(answer["faults"], SizeIs(1)) << answer.dump(2);
        return answer["faults"].empty() ? nlohmann::json() : answer["faults"][0];
    }

    static std::string StateOf(const nlohmann::json& answer, const std::string& progId)
    {
        for (const auto& made : answer["classes"])
            if (made["name"] == progId)
                return made["state"];
        return "not told";
    }
};

TEST_F(Doctor, FindsNothingWrongInAWholeFolder)
{
    const nlohmann::json answer = Examine(0);
    EXPECT_THAT(answer["faults"], IsEmpty());
    EXPECT_THAT(answer["classes"], SizeIs(11));
    EXPECT_THAT(answer["languages"], SizeIs(10));
}

TEST_F(Doctor, TellsAPersonInSentences)
{
    host.Remove("LV_strStream.dll");
    const ToolResult result = RunLvprop({"doctor", host.Path()});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out,
                AllOf(HasSubstr("fault  LV_strStream.dll is not in the folder.\n"), HasSubstr("Copy it there"),
                      HasSubstr("Cannot be made: strStream prpPropertyCollection\n"),
                      HasSubstr("1 fault; 2 of 11 classes cannot be made\n")));
}

TEST_F(Doctor, NamesARemovedLibrary)
{
    host.Remove("LV_prpPropCollection.dll");
    const nlohmann::json fault = TheFault();
    EXPECT_EQ(fault["kind"], "missing-library");
    EXPECT_EQ(fault["subject"], "LV_prpPropCollection.dll");
    EXPECT_THAT(fault["classes"].get<Strings>(), Contains("prpPropertyCollection"));
}

TEST_F(Doctor, TellsALibraryFor32BitPrograms)
{
    host.Edit("LV_strStream.dll", [](std::string& bytes) {
        const auto header = static_cast<unsigned char>(bytes[0x3C]);
        PutU16(bytes, header + size_t{4}, kMachineX86);
        PutU16(bytes, header + size_t{24}, 0x10B);
    });
    const nlohmann::json fault = TheFault();
    EXPECT_EQ(fault["kind"], "wrong-bitness");
    EXPECT_THAT(fault["subject"].get<std::string>(), testing::EndsWith("LV_strStream.dll"));
    EXPECT_THAT(fault["reason"].get<std::string>(), HasSubstr("is 32-bit (x86)"));
    EXPECT_THAT(fault["classes"].get<Strings>(), ElementsAre("strStream", "prpPropertyCollection"));
}

TEST_F(Doctor, TellsALibraryThatIsCutOffOrNone)
{
    host.Edit("LV_strStream.dll", [](std::string& bytes) { bytes.resize(bytes.size() * 3 / 4); });
    nlohmann::json fault = TheFault();
    EXPECT_EQ(fault["kind"], "damaged-library");
    EXPECT_THAT(fault["reason"].get<std::string>(), HasSubstr("is damaged: the file is cut off"));

    host.Write("LV_strStream.dll", "not a library");
    fault = TheFault();
    EXPECT_EQ(fault["kind"], "damaged-library");
    EXPECT_THAT(fault["reason"].get<std::string>(), HasSubstr("does not begin as a library"));
}

TEST_F(Doctor, NamesARemovedManifest)
{
    host.Remove("Lumevor.PropertyCollection.manifest");
    const nlohmann::json fault = TheFault();
    EXPECT_EQ(fault["kind"], "missing-manifest");
    EXPECT_EQ(fault["subject"], "Lumevor.PropertyCollection.manifest");
    EXPECT_THAT(fault["classes"], SizeIs(9));
}

TEST_F(Doctor, TellsTheLineAtWhichAManifestBreaks)
{
    host.Write("Lumevor.Stream.manifest", "<assembly>\n<file>\n</assembly>\n");
    const nlohmann::json fault = TheFault();
    EXPECT_EQ(fault["kind"], "unreadable-manifest");
    EXPECT_THAT(fault["reason"].get<std::string>(), HasSubstr("Lumevor.Stream.manifest:3"));
}

TEST_F(Doctor, NamesTheClassWhoseEntryIsMissing)
{
    host.Replace("Lumevor.PropertyCollection.manifest", "{7AFCECFB-CCCF-4518-91B9-9747A53C74B0}",
                 "{7AFCECFB-CCCF-4518-91B9-9747A53C74B1}");
    const nlohmann::json answer = Examine(1);
    ASSERT_THAT(answer["faults"], SizeIs(1));
    EXPECT_EQ(answer["faults"][0]["kind"], "missing-manifest-entry");
    EXPECT_THAT(answer["faults"][0]["reason"].get<std::string>(), HasSubstr("prpHelpInfo {7AFCECFB"));
    EXPECT_EQ(StateOf(answer, "Tolvarin.prpHelpInfo"), "cannot be made");
    EXPECT_EQ(StateOf(answer, "Tolvarin.prpProperty"), "in place");
}

TEST_F(Doctor, TellsAProgramThatForgetsAnAssembly)
{
    host.Replace("host.exe.manifest", "Lumevor.Stream", "Another.Stream");
    const nlohmann::json fault = TheFault();
    EXPECT_EQ(fault["kind"], "missing-manifest-entry");
    EXPECT_EQ(fault["subject"], "host.exe.manifest");
    EXPECT_THAT(fault["reason"].get<std::string>(), HasSubstr("does not name the assembly \"Lumevor.Stream\""));
}

TEST_F(Doctor, LeavesTheManifestsOfOtherProgramsAlone)
{
    host.Write("other.exe.manifest", "<assembly><dependency/></assembly>");
    host.Write("broken.exe.manifest", "<assembly>");
    EXPECT_THAT(Examine(0)["faults"], IsEmpty());
}

TEST_F(Doctor, NamesAMissingLanguageUnlessItIsNotMeantToBeThere)
{
    host.Remove("LV_resResources_CZ.dll");
    const nlohmann::json fault = TheFault();
    EXPECT_EQ(fault["kind"], "missing-language");
    EXPECT_EQ(fault["subject"], "LV_resResources_CZ.dll");
    EXPECT_THAT(fault["classes"], IsEmpty()) << "the classes are made, and speak English";

    EXPECT_THAT(Examine(0, {"--languages", "EN,DE"})["languages"].get<Strings>(), ElementsAre("EN", "DE"));
}

TEST_F(Doctor, TellsEveryFaultOfAnEmptyFolder)
{
    const ToolFiles empty;
    const ToolResult result = RunLvprop({"doctor", empty.Path(""), "--json"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(nlohmann::json::parse(result.out, nullptr, false)["faults"], SizeIs(3 + 3 + 10));
}

TEST_F(Doctor, RefusesAFolderThatIsNotThereAndALanguageThatIsNone)
{
    const ToolResult missing = RunLvprop({"doctor", host.File("nowhere")});
    EXPECT_EQ(missing.status, 2);
    EXPECT_THAT(missing.err, HasSubstr("nowhere: there is no such folder"));
    EXPECT_EQ(RunLvprop({"doctor", host.Path(), "--languages", "XX"}).status, 2);
    EXPECT_EQ(RunLvprop({"doctor", host.Path(), "more"}).status, 2);
}

} // namespace
