// decode, check and diff: saved texts without any tree.
#include "tests/tools/SpoiltText.h"
#include "tests/tools/ToolFixture.h"

#include <random>

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class SavedCommands : public ToolTest {
protected:
    std::string Saved(const std::string& text) const { return files.Write("saved.txt", text); }

    /// Kind and reason of what `check` tells about a text of one record.
    std::string TroubleOf(const std::string& record, const std::string& version = "1") const
    {
        const nlohmann::json result = RunJson({"check", files.Write("one.txt", "~" + record), "--version", version}, 1);
        const auto& troubles = result["troubles"];
        return troubles.size() != 1
                   ? "none"
                   : troubles[0]["kind"].get<std::string>() + ": " + troubles[0]["reason"].get<std::string>();
    }
};

} // namespace

TEST_F(SavedCommands, DecodeExplainsEachRecordWithItsPlace)
{
    const nlohmann::json records = RunJson({"decode", Saved("~1al1|35~1bi212.5\n")});
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0], (nlohmann::json{{"offset", 0},
                                          {"length", 8},
                                          {"id", 26},
                                          {"visible", true},
                                          {"readOnly", false},
                                          {"editFlags", 1},
                                          {"type", "long"},
                                          {"value", "5"}}));
    EXPECT_EQ(records[1], (nlohmann::json{{"offset", 8},
                                          {"length", 9},
                                          {"id", 27},
                                          {"visible", false},
                                          {"readOnly", true},
                                          {"type", "linear"},
                                          {"value", "12.5"}}));
}

TEST_F(SavedCommands, DecodeCountsOffsetsInBytesOfTheFile)
{
    const nlohmann::json records = RunJson({"decode", Saved("\xEF\xBB\xBF~1dh6\xC2\xB1\xE2\x82\xAC~1al1|35")});
    EXPECT_EQ(records[0]["offset"], 3);
    EXPECT_EQ(records[0]["length"], 10);
    EXPECT_EQ(records[1]["offset"], 13);
    const std::string wide("\xFF\xFE~\0"
                           "1\0h\0"
                           "3\0"
                           "5\0~\0"
                           "2\0h\0"
                           "3\0"
                           "5\0",
                           22);
    EXPECT_EQ(RunJson({"decode", Saved(wide)})[1]["offset"], 12);
}

TEST_F(SavedCommands, DecodeShowsEscapesUndoneAndARecordThatCannotBeRead)
{
    const ToolResult result = Run({"decode", Saved("~1dl1|6a\\$b\\&c~zz")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out,
                AllOf(HasSubstr("a~b|c"), HasSubstr("Invalid property string: zz"), HasSubstr("2 records")));
}

TEST_F(SavedCommands, DecodeReadsTheFormatBeforeThePresentOne)
{
    const nlohmann::json records = RunJson({"decode", Saved("~1001a,3|5"), "--version", "0"});
    EXPECT_EQ(records[0]["id"], 26) << "the id is cut to its low 16 bits";
    EXPECT_EQ(records[0]["readOnly"], true);
    EXPECT_FALSE(records[0].contains("type"));
}

TEST_F(SavedCommands, CheckOfAGoodTextIsFine)
{
    const ToolResult result = Run({"check", Saved("~1al1|35~1bl1|212.5\r\n")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "2 records: 0 will not load, 0 will load otherwise than it stands, 0 of the ids are repeated\n");
    EXPECT_THAT(result.err, IsEmpty());
}

TEST_F(SavedCommands, CheckTellsWhyARecordWillNotLoad)
{
    EXPECT_EQ(TroubleOf("1al1"), "fault: Invalid data type");
    EXPECT_EQ(TroubleOf("lg1"), "fault: Invalid property string");
    EXPECT_EQ(TroubleOf("~?h35"), "fault: Propertyid failed");
    EXPECT_EQ(TroubleOf("1ah2"), "fault: Value not found - token 1ah2.");
    EXPECT_EQ(TroubleOf("1ah0x"), "fault: Invalid data type");
    EXPECT_EQ(TroubleOf("1ahz5"), "fault: no property can have the type 25");
    EXPECT_EQ(TroubleOf("0h35"), "fault: no property can have the id 0");
    EXPECT_EQ(TroubleOf("1ah76"), "fault: tolerance type 6 does not exist: the load ends here with an error");
    EXPECT_EQ(TroubleOf("5", "0"), "fault: PropertyID -1 was not found in the collection.");
}

TEST_F(SavedCommands, CheckTellsWhatLoadsOtherwiseThanItStands)
{
    EXPECT_EQ(TroubleOf("1ah2abc"), "remark: \"abc\" is no number: the property keeps its value");
    EXPECT_EQ(TroubleOf("1ah212abc"), "remark: only \"12\" of \"12abc\" is read");
    EXPECT_EQ(TroubleOf("1ah312.5"), "remark: only \"12\" of \"12.5\" is read");
    EXPECT_EQ(TroubleOf("1ahk1ffff"), "remark: \"1ffff\" is cut to its low 16 bits, 65535");
    EXPECT_EQ(TroubleOf("1ah81;2"), "remark: 2 coordinates, not 3");
    EXPECT_EQ(TroubleOf("1ah81,2,3"), "remark: 1 coordinates, not 3");
    EXPECT_EQ(TroubleOf("1ah81;x;3"), "remark: coordinate 2, \"x\", is no number");
    EXPECT_EQ(TroubleOf("1ahr1,2,3#4;5;6"), "remark: 1 line of the path cannot be read");
    EXPECT_EQ(TroubleOf("1ah71"), "remark: sections are missing: their fields become 0");
    EXPECT_EQ(TroubleOf("1ah7x"), "remark: the head \"x\" is no number: the tolerance becomes none");
    EXPECT_EQ(TroubleOf("1ah5\xC3\xB6"), "remark: letters outside ASCII are replaced or dropped");
}

TEST_F(SavedCommands, CheckTellsRepeatedIds)
{
    const ToolResult result = Run({"check", Saved("~1ah31~1bh31~1ah32")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr("property 26 stands 2 times; the last record wins"));
}

TEST_F(SavedCommands, CheckTellsAnEmptyTextAndAWrongMarker)
{
    const ToolResult empty = Run({"check", Saved("")});
    EXPECT_EQ(empty.status, 1);
    EXPECT_THAT(empty.err, HasSubstr("the text is empty"));
    const ToolResult wrong = Run({"check", Saved("#1al1|35")});
    EXPECT_EQ(wrong.status, 1);
    EXPECT_THAT(wrong.err, HasSubstr("begins with \"#\", not with the record marker \"~\""));
}

TEST_F(SavedCommands, DiffTellsValuesFlagsTypesAndWhatStandsInOneOnly)
{
    const std::string a = files.Write("a.txt", "~1al1|35~1bh21~1ch31~1dh31");
    const std::string b = files.Write("b.txt", "~1al1|36~1bn1|21~1ch41~1eh31");
    const nlohmann::json result = RunJson({"diff", a, b}, 1);
    std::vector<std::string> told;
    for (const auto& difference : result["differences"])
        told.push_back(std::to_string(difference["id"].get<int>()) + " " + difference["what"].get<std::string>() + " " +
                       difference["first"].get<std::string>() + "|" + difference["second"].get<std::string>());
    EXPECT_THAT(told,
                testing::ElementsAre("26 value 5|6", "27 flags visible|visible, read-only", "27 edit flags not saved|1",
                                     "28 type long|double", "29 only in the first 1|", "30 only in the second |1"));
}

TEST_F(SavedCommands, DiffOfEqualTextsInAnotherOrderIsFine)
{
    const std::string a = files.Write("a.txt", "~1ah35~1bh21");
    const std::string b = files.Write("b.txt", "~1bh21~1ah35\n");
    EXPECT_EQ(Run({"diff", a, b}).status, 0);
    EXPECT_EQ(Run({"diff", a, b}).out, "0 differences\n");
}

TEST_F(SavedCommands, DamagedAndRandomTextsNeverEndThePrograms)
{
    std::mt19937 random(11);
    std::string noise(100000, '\0');
    for (char& c : noise)
        c = static_cast<char>(random());
    for (const std::string& text : {DamagedText(1, 5000), RandomText(2, 5000), noise})
        for (const char* command : {"decode", "check"})
            for (const char* version : {"0", "1"}) {
                const ToolResult result = Run({command, Saved(text), "--version", version});
                EXPECT_EQ(result.status, 1) << command << " " << version;
                EXPECT_THAT(result.out, HasSubstr("records"));
            }
}
