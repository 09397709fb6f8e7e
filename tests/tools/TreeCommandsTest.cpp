// show, save, load, set, convert and audit, as a user runs them.
#include "tests/tools/ToolFixture.h"

#include <functional>

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr const char* kSaved =
    "~al0|s~1fn1|81;2.5;-3~1el1|71#3\xC2\xAC"
    "1\xC2\xAC"
    "10\xC2\xAC"
    "0.1\xC2\xAC-0.1~1dl1|6a\\$b\\&c#d~1cl1|k2"
    "~1bl1|212.5~1al1|35~21l1|41~20l1|r    1.0000,    2.0000,    3.0000#    4.0000,    5.0000,    6.0000";

class TreeCommands : public ToolTest {
protected:
    std::string saved = files.Write("saved.txt", std::string(kSaved) + "\n");

    /// The entry of a property in the JSON of `show`.
    nlohmann::json Shown(int id, std::vector<std::string> arguments, int status = 0) const
    {
        arguments.insert(arguments.begin(), "show");
        const nlohmann::json shown = RunJson(arguments, status);
        for (const auto& property : shown["properties"])
            if (property["id"] == id)
                return property;
        return nullptr;
    }
};

} // namespace

TEST_F(TreeCommands, ShowPrintsTheTreeAlignedAndIndented)
{
    const ToolResult result = Run({"show", routine});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, IsEmpty());
    EXPECT_EQ(result.out, "id  name             type            value              flags    error\n"
                          "10  Probe            category                           vp-s- 0\n"
                          "26    Count          long            5                  vp-s- 1\n"
                          "27    Depth (mm)     linear          12.5               vp-s- 1  Out of range\n"
                          "28    Mode           enum            Exact [2]          vp-s- 1\n"
                          "29  Note             multi_string    a~b|c\xE2\x8F\x8E"
                          "d            vp-s- 1\n"
                          "30  Bore             tolerance       1#3\xC2\xAC"
                          "1\xC2\xAC"
                          "10\xC2\xAC"
                          "0.1\xC2\xAC-0.1  vp-s- 1\n"
                          "31  Place            position        1;2.5;-3           vprs- 1\n"
                          "32  Path             scan_path_list  2 path points      vp-s- 1\n"
                          "33  Only when exact  double          1                  vp-s- 1\n"
                          "9 properties\n");
}

TEST_F(TreeCommands, ShowOfADeepTreeIsAsWideAsItsLastIndentedLevel)
{
    std::string deep = R"({"routineVersion": 1, "properties": [{"id": 1, "type": "long"})";
    for (int id = 2; id <= 5000; ++id)
        deep += ",{\"id\": " + std::to_string(id) + ", \"type\": \"long\", \"parent\": " + std::to_string(id - 1) + "}";
    const ToolResult result = Run({"show", files.Write("deep.json", deep + "]}")});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("5000 properties"));
    EXPECT_LT(result.out.size(), 5000U * 100);
}

TEST_F(TreeCommands, ShowTakesTheValuesOfASavedText)
{
    EXPECT_EQ(Shown(26, {routine, files.Write("s.txt", "~1al1|342")})["shown"], "42");
    EXPECT_EQ(Shown(28, {routine})["itemText"], "Exact");
    EXPECT_EQ(Shown(27, {routine})["valid"], false);
}

TEST_F(TreeCommands, SaveWritesTheLineOfTheCollection)
{
    const ToolResult result = Run({"save", routine});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, std::string(kSaved) + "\n");
    EXPECT_EQ(Run({"save", routine, "-o", files.Path("out.txt")}).out, "");
    EXPECT_EQ(ToolFiles::Read(files.Path("out.txt")), std::string(kSaved) + "\n");
}

TEST_F(TreeCommands, LoadOfItsOwnTextTakesEverythingAndSavesItAgain)
{
    const ToolResult result = Run({"load", routine, saved, "-o", files.Path("again.txt")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "9 records, 0 faults\n");
    EXPECT_EQ(ToolFiles::Read(files.Path("again.txt")), ToolFiles::Read(saved));
}

TEST_F(TreeCommands, LoadReadsATextWithAByteOrderMarkInEitherEncoding)
{
    const std::string utf16("\xFF\xFE~\0"
                            "1\0"
                            "a\0"
                            "l\0"
                            "1\0"
                            "|\0"
                            "3\0"
                            "7\0\r\0\n\0",
                            22);
    EXPECT_EQ(Shown(26, {routine, files.Write("8.txt", "\xEF\xBB\xBF~1al1|37\n")})["shown"], "7");
    EXPECT_EQ(Shown(26, {routine, files.Write("16.txt", utf16)})["shown"], "7");
}

TEST_F(TreeCommands, LoadTellsFaultsUnusedAndMismatchedDataOneByOne)
{
    const std::string text = files.Write("bad.txt", "~zz~1al1|x~63l1|35~1cl1|42");
    const nlohmann::json result = RunJson({"load", routine, text}, 1);
    EXPECT_THAT(result["faults"], ElementsAre("Invalid property string", "Value not found - token 1al1|x.",
                                              "Property not found", "Data type mismatch"));
    EXPECT_EQ(result["unused"].size(), 1u);
    EXPECT_EQ(result["unused"][0]["id"], 99);
    EXPECT_EQ(result["unused"][0]["value"], "5");
    EXPECT_EQ(result["mismatched"].back()["id"], 28);
    EXPECT_EQ(result["mismatched"].back()["type"], "double");
}

TEST_F(TreeCommands, LoadKeepsWhatDidNotFitInTheTextThatItWrites)
{
    const std::string text = files.Write("bad.txt", "~63l1|35");
    EXPECT_EQ(Run({"load", routine, text, "-o", files.Path("again.txt")}).status, 1);
    EXPECT_THAT(ToolFiles::Read(files.Path("again.txt")), HasSubstr("~63n0|35"));
}

TEST_F(TreeCommands, LoadReadsTheFormatBeforeThePresentOne)
{
    const std::string text = files.Write("old.txt", "~1a,1|9~1b,3|2.25");
    EXPECT_EQ(Run({"load", routine, text, "--version", "0"}).status, 0);
    EXPECT_EQ(Shown(27, {routine, text, "--version", "0"})["shown"], "2.25");
    EXPECT_EQ(Shown(27, {routine, text, "--version", "0"})["readOnly"], true);
    EXPECT_EQ(Run({"load", routine, text, "--version", "2"}).status, 2);
}

TEST_F(TreeCommands, LoadThatASetterEndsTellsSoAndWritesNothing)
{
    const std::string text = files.Write("bad.txt", "~1al1|38~1el1|7FF");
    const ToolResult result = Run({"load", routine, text, "-o", files.Path("again.txt")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr("The load ended early"));
    EXPECT_FALSE(files.Has("again.txt"));
}

TEST_F(TreeCommands, SetShowsTheEventsThatASinkReceives)
{
    const nlohmann::json events = RunJson({"set", routine, "26=6", "28=1"})["events"];
    ASSERT_EQ(events.size(), 3u);
    EXPECT_EQ(events[0], (nlohmann::json{{"event", "edited"},
                                         {"id", 26},
                                         {"collection", 7},
                                         {"parent", -1},
                                         {"visibilityChanged", false},
                                         {"dataChanged", true},
                                         {"oldText", "5"},
                                         {"text", "6"}}));
    EXPECT_EQ(events[1]["id"], 28);
    EXPECT_EQ(events[2]["id"], 33) << "the rule hides it at the end of the transaction";
    EXPECT_EQ(events[2]["visibilityChanged"], true);
    EXPECT_FALSE(events[2].contains("oldText"));
}

TEST_F(TreeCommands, SetToThePresentTextShowsNoEvent)
{
    EXPECT_EQ(Run({"set", routine, "26=5"}).out, "0 events\n");
}

TEST_F(TreeCommands, SetTakesEverythingBehindTheFirstSignAsText)
{
    const ToolResult result = Run({"set", routine, "29=x=1~\"q\" \\", "-o", files.Path("out.txt")});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(ToolFiles::Read(files.Path("out.txt")), HasSubstr("~1dl1|6x=1\\$\"q\" \\~"));
}

TEST_F(TreeCommands, SetWorksOnTopOfASavedText)
{
    const std::string text = files.Write("s.txt", "~1al1|342");
    const nlohmann::json events = RunJson({"set", routine, text, "26=6"})["events"];
    EXPECT_EQ(events[0]["oldText"], "42");
}

TEST_F(TreeCommands, SetOfAnIdThatTheRoutineLacksChangesNothing)
{
    const ToolResult result = Run({"set", routine, "26=6", "99=1", "-o", files.Path("out.txt")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "lvprop: the routine has no property 99\n");
    EXPECT_FALSE(files.Has("out.txt"));
}

TEST_F(TreeCommands, ConvertShowsBothValuesAndWritesTheRoutineInTheNewUnit)
{
    const nlohmann::json result = RunJson(
        {"convert", routine, "--to", "imperial", "-o", files.Path("inch.json"), "--saved", files.Path("inch.txt")});
    EXPECT_EQ(result["changes"].size(), 10u);
    EXPECT_EQ(result["changes"][0]["field"], "value");
    EXPECT_EQ(result["changes"][0]["before"], "12.5");
    EXPECT_EQ(result["changes"][0]["after"], "0.4921259842519685");
    const auto inch = nlohmann::json::parse(ToolFiles::Read(files.Path("inch.json")));
    EXPECT_EQ(inch["unitMode"], "imperial");
    EXPECT_EQ(inch["properties"][2]["bounds"]["lower"]["value"], -0.03937007874015748);
    EXPECT_EQ(inch["properties"][2]["name"], "Depth (mm)");
    EXPECT_THAT(ToolFiles::Read(files.Path("inch.txt")), HasSubstr("~1bl1|20.4921~"));
}

TEST_F(TreeCommands, ConvertThereAndBackReadsAsBefore)
{
    Run({"convert", routine, "--to", "imperial", "-o", files.Path("inch.json")});
    Run({"convert", files.Path("inch.json"), "--to", "metric", "-o", files.Path("mm.json")});
    EXPECT_EQ(Run({"save", files.Path("mm.json")}).out, Run({"save", routine}).out);
}

TEST_F(TreeCommands, ConvertToThePresentUnitLeavesTheValuesAlone)
{
    const ToolResult result = Run({"convert", routine, "--to", "metric"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "0 fields changed\n");
    EXPECT_THAT(result.err, HasSubstr("is metric already"));
}

TEST_F(TreeCommands, AuditListsEachLossWithBothValues)
{
    const std::string lossy = files.Write("lossy.json", R"({"routineVersion": 1, "properties": [
      {"id": 1, "type": "linear", "value": 1.23456789},
      {"id": 2, "type": "tolerance", "value": {"type": "geometric",
         "x": {"kind": "position", "value": 945.20274658203107, "status": "in_tolerance", "measured": 3}}},
      {"id": 3, "type": "multi_string", "value": "a#b"},
      {"id": 4, "type": "long", "value": 9, "alwaysSave": false},
      {"id": 5, "type": "long", "value": 9, "warning": "Odd"}]})");
    const nlohmann::json result = RunJson({"audit", lossy}, 1);
    std::vector<std::string> losses;
    for (const auto& loss : result["losses"])
        losses.push_back(std::to_string(loss["id"].get<int>()) + " " + loss["field"].get<std::string>() + ": " +
                         loss["before"].get<std::string>() + " -> " + loss["after"].get<std::string>());
    EXPECT_THAT(losses,
                testing::UnorderedElementsAre(
                    "1 value: 1.23456789 -> 1.2346", "2 X.value: 945.2027465820311 -> 945.203",
                    "2 X.status: in_tolerance -> not_calculated", "2 X.measured: 3 -> 0", "3 value: a#b -> a\r\nb",
                    "4 value: 9 -> 0", "5 warning text: Odd -> ", "5 in warning: yes -> no"));
    EXPECT_EQ(result["loadsWhole"], true);
    EXPECT_EQ(result["savesEqual"], true);
}

TEST_F(TreeCommands, AuditOfATreeThatTheFormatKeepsIsFine)
{
    const std::string plain = files.Write("plain.json", R"({"routineVersion": 1, "properties": [
      {"id": 1, "type": "linear", "value": 1.25}, {"id": 2, "type": "string", "value": "a~b|c"}]})");
    const ToolResult result = Run({"audit", plain});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, AllOf(HasSubstr("0 fields lost"), HasSubstr("loads whole; saved again it is equal")));
}

TEST_F(TreeCommands, ATypeThatCannotBeSavedIsNamed)
{
    const std::string wide = files.Write(
        "wide.json", R"({"routineVersion": 1, "properties": [{"id": 1, "type": "string_unicode", "value": "x"}]})");
    const ToolResult result = Run({"save", wide, "-o", files.Path("out.txt")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, StartsWith("lvprop: SaveToStream: "));
    EXPECT_FALSE(files.Has("out.txt"));
}

TEST_F(TreeCommands, APropertyThatCannotBeBuiltIsNamed)
{
    const std::string bad = files.Write(
        "bad.json", R"({"routineVersion": 1, "properties": [{"id": 12, "name": "Bore (left", "type": "long"}]})");
    const ToolResult result = Run({"show", bad});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, StartsWith("lvprop: property 12: "));
    EXPECT_THAT(result.out, Not(HasSubstr("Bore")));
}
