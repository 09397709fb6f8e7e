// Help, wrong use and bad input: a sentence on the error stream, the right exit status, nothing written.
#include "tests/tools/Samples.h"
#include "tests/tools/ToolFixture.h"

using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

constexpr const char* kCommands[] = {"show", "save",  "load",  "set",    "convert", "decode",
                                     "diff", "check", "audit", "doctor", "import"};

class Usage : public ToolTest {
protected:
    /// The sentence of a command that must not write anything.
    std::string SentenceOf(std::vector<std::string> arguments, int status = 2) const
    {
        const size_t before = files.Count();
        const ToolResult result = Run(arguments);
        EXPECT_EQ(result.status, status) << result.err;
        EXPECT_THAT(result.out, IsEmpty());
        EXPECT_EQ(files.Count(), before) << "nothing is written";
        EXPECT_THAT(result.err, StartsWith("lvprop: "));
        return result.err.substr(8);
    }
};

} // namespace

TEST_F(Usage, HelpListsTheCommandsAndEachHasExamples)
{
    const ToolResult help = Run({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* command : kCommands) {
        EXPECT_THAT(help.out, HasSubstr(std::string("\n  ") + command));
        const ToolResult own = Run({command, "--help"});
        EXPECT_EQ(own.status, 0);
        EXPECT_THAT(own.out, HasSubstr(std::string("lvprop ") + command + " "));
        EXPECT_THAT(own.out, HasSubstr("Examples:"));
    }
}

TEST_F(Usage, VersionIsThatOfTheProduct)
{
    EXPECT_EQ(Run({"--version"}).out, "lvprop 1.85.0.21\n");
}

TEST_F(Usage, WrongUseIsToldWithStatusTwo)
{
    EXPECT_THAT(SentenceOf({}), HasSubstr("subcommand is required"));
    EXPECT_THAT(SentenceOf({"frobnicate"}), Not(IsEmpty()));
    EXPECT_THAT(SentenceOf({"show"}), HasSubstr("ROUTINE is required"));
    EXPECT_THAT(SentenceOf({"show", routine, "--frob"}), HasSubstr("--frob"));
    EXPECT_THAT(SentenceOf({"convert", routine, "--to", "cubits"}), HasSubstr("--to"));
    EXPECT_THAT(SentenceOf({"set", routine}), HasSubstr("at least one ID=TEXT"));
    EXPECT_THAT(SentenceOf({"set", routine, "26=1", "oops"}), HasSubstr("\"oops\" is no assignment"));
}

TEST_F(Usage, AMissingFileIsToldByName)
{
    EXPECT_THAT(SentenceOf({"show", files.Path("none.json")}), HasSubstr("none.json: cannot be read: "));
    EXPECT_THAT(SentenceOf({"load", routine, files.Path("none.txt")}), HasSubstr("none.txt: cannot be read: "));
    EXPECT_THAT(SentenceOf({"import", files.Path("none.qif")}), HasSubstr("none.qif: cannot be read: "));
}

TEST_F(Usage, APathThatBeginsWithASlashIsAFileOnEverySystem)
{
    EXPECT_THAT(SentenceOf({"show", "/none.json"}), HasSubstr("/none.json: cannot be read: "));
    EXPECT_THAT(SentenceOf({"decode", "/j"}), HasSubstr("/j: cannot be read: "));
    EXPECT_THAT(SentenceOf({"set", routine, "/version:0", "26=1"}), HasSubstr("/version:0: cannot be read: "));
}

TEST_F(Usage, AnUnreadableRoutineIsToldWithLineKeyAndReason)
{
    const std::string broken = files.Write("broken.json", "{\n  \"routineVersion\": 1,\n  \"properties\": [}\n");
    EXPECT_THAT(SentenceOf({"save", broken, "-o", files.Path("o.txt")}),
                AllOf(HasSubstr("broken.json:3: /properties"), HasSubstr("syntax error")));
    const std::string wrong =
        files.Write("wrong.json", "{\"routineVersion\": 1, \"properties\": [\n{\"id\": \"x\", \"type\": \"long\"}]}");
    EXPECT_THAT(SentenceOf({"show", wrong}), HasSubstr("wrong.json:2: /properties/0/id: expected a whole number"));
}

TEST_F(Usage, ASavedTextWithAWrongMarkerIsRefused)
{
    const std::string wrong = files.Write("wrong.txt", "#1al1|35");
    EXPECT_THAT(SentenceOf({"load", routine, wrong, "-o", files.Path("o.txt")}, 1),
                HasSubstr("begins with \"#\", not with the record marker \"~\""));
    EXPECT_THAT(SentenceOf({"show", routine, wrong}, 1), HasSubstr("record marker"));
}

TEST_F(Usage, HostileAndCutDocumentsAreRefused)
{
    const std::string bomb = files.Write("bomb.qif", "<?xml version='1.0'?>\n<!DOCTYPE a [<!ENTITY b 'ha'>\n"
                                                     "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;'>]>\n<a>&c;</a>");
    EXPECT_THAT(SentenceOf({"import", bomb, "-o", files.Path("o.json")}),
                AllOf(HasSubstr("bomb.qif:2: "), HasSubstr("document type")));
    std::string deep;
    for (int i = 0; i < 100000; ++i)
        deep += "<a>";
    EXPECT_THAT(SentenceOf({"import", files.Write("deep.qif", deep), "-o", files.Path("o.json")}),
                HasSubstr("nested deeper than 128 levels"));
    const std::string cut =
        files.Write("cut.qif", "<QIFDocument versionQIF='3.0.0'>\n<FileUnits><PrimaryUnits><LinearUnit>");
    EXPECT_THAT(SentenceOf({"import", cut, "-o", files.Path("o.json")}),
                AllOf(HasSubstr("cut.qif:2: "), HasSubstr("not well-formed XML")));
    const std::string other = files.Write("other.qif", "<html/>");
    EXPECT_THAT(SentenceOf({"import", other}), HasSubstr("this is no QIF document"));
}

TEST_F(Usage, AFileThatCannotBeWrittenIsTold)
{
    EXPECT_THAT(SentenceOf({"save", routine, "-o", files.Path("no/such/folder.txt")}),
                HasSubstr("folder.txt: cannot be written"));
}

TEST_F(Usage, EveryCommandSpeaksJson)
{
    const std::string saved = files.Write("saved.txt", "~1al1|35~63l1|35~1cl1|42~1dl1|6a\"b\\$\x01\xFF~zz");
    const std::string sample = files.Path("plan.json");
    const std::vector<std::vector<std::string>> commands = {
        {"show", routine},
        {"show", routine, saved},
        {"save", routine},
        {"save", routine, "-o", files.Path("o.txt")},
        {"load", routine, saved},
        {"set", routine, "26=6"},
        {"set", routine, saved, "29=\"\t"},
        {"convert", routine, "--to", "imperial"},
        {"decode", saved},
        {"decode", files.Write("empty.txt", "")},
        {"decode", saved, "--version", "0"},
        {"diff", saved, files.Write("other.txt", "~1al1|36")},
        {"check", saved},
        {"check", saved, "--quiet"},
        {"audit", routine},
        {"audit", routine, saved, "--summary"},
        {"import", SamplePath("qif/QIF_Results_Sample.QIF"), "-o", sample},
    };
    for (std::vector<std::string> arguments : commands) {
        const std::string said = testing::PrintToString(arguments);
        arguments.push_back("--json");
        const ToolResult result = Run(arguments);
        EXPECT_NE(result.status, 2) << said << result.err;
        EXPECT_TRUE(nlohmann::json::accept(result.out)) << said << result.out;
    }
}

TEST_F(Usage, AFileThatGoesToTheOutputStandsThereAlone)
{
    const std::string saved = files.Write("saved.txt", "~1al1|37");
    const std::string text = Run({"load", routine, saved, "-o", "-"}).out;
    EXPECT_EQ(text, Run({"load", routine, saved, "-o", "-", "--json"}).out);
    EXPECT_THAT(text, AllOf(StartsWith("~"), HasSubstr("~1al1|37~")));
    EXPECT_EQ(Run({"load", routine, saved, "-o", "-"}).err, "1 record, 0 faults\n");
    EXPECT_THAT(Run({"set", routine, "26=7", "-o", "-"}).out, StartsWith("~"));
    EXPECT_THAT(Run({"convert", routine, "--to", "imperial", "--saved", "-"}).out, StartsWith("~"));
    EXPECT_TRUE(nlohmann::json::accept(Run({"convert", routine, "--to", "imperial", "-o", "-"}).out));
}

TEST_F(Usage, NothingIsColouredAwayFromATerminal)
{
    EXPECT_THAT(Run({"show", routine}).out, Not(HasSubstr("\033[")));
    EXPECT_THAT(Run({"import", "--help"}).out, Not(HasSubstr("\033[")));
}
