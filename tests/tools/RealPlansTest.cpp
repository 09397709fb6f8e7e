// The sample plans from end to end: imported, saved, loaded, saved again, audited.
#include "tests/tools/Samples.h"
#include "tests/tools/ToolFixture.h"

#include <map>
#include <set>

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct Plan {
    const char* file;
    int importStatus; ///< 1 where the document itself has a fault
};

const Plan kPlans[] = {
    {"nist_ctc_03_asme1_ap242.qif", 0}, {"nist_ctc_03_asme1_cr2040_rc.qif", 0},
    {"nist_ctc_05_asme1_ap242.qif", 0}, {"nist_ftc_08_asme1_ap242-1.qif", 0},
    {"QIF_PTS_SAMPLE.QIF", 1},          {"QIF_Results_Sample.QIF", 0},
    {"WIDGET_QIF_RESULTS.QIF", 0},      {"PlateResults_20_samples.QIF", 0},
};

class RealPlan : public testing::TestWithParam<Plan> {
protected:
    RealPlan()
    {
        const ToolResult result =
            RunLvprop({"import", SamplePath(std::string("qif/") + GetParam().file), "-o", routine, "--json"});
        EXPECT_EQ(result.status, GetParam().importStatus) << result.err;
        report = nlohmann::json::parse(result.out, nullptr, false);
    }

    ToolFiles files;
    std::string routine = files.Path("plan.json");
    nlohmann::json report;
};

/// What the formats are known to lose: digits of numbers, the outcome of a measurement, and nothing else.
bool IsPromisedLoss(const nlohmann::json& loss)
{
    static const std::set<std::string> kRounded = {"linear", "angle", "position", "vector", "scan_path_list"};
    const std::string type = loss["type"];
    const std::string field = loss["field"];
    if (kRounded.contains(type))
        return field == "value" || field == "X" || field == "Y" || field == "Z" || field.starts_with("point ");
    if (type != "tolerance")
        return false;
    const std::string part = field.substr(field.find('.') + 1);
    return part == "nominal" || part == "upper" || part == "lower" || part == "value" || part == "status" ||
           part == "measured";
}

} // namespace

TEST_P(RealPlan, SavesLoadsAndSavesAgainAsTheSameText)
{
    ASSERT_EQ(RunLvprop({"save", routine, "-o", files.Path("1.txt")}).status, 0);
    ASSERT_EQ(RunLvprop({"load", routine, files.Path("1.txt"), "-o", files.Path("2.txt")}).status, 0);
    ASSERT_EQ(RunLvprop({"load", routine, files.Path("2.txt"), "-o", files.Path("3.txt")}).status, 0);
    const std::string first = ToolFiles::Read(files.Path("1.txt"));
    EXPECT_FALSE(first.empty());
    EXPECT_EQ(ToolFiles::Read(files.Path("2.txt")), first);
    EXPECT_EQ(ToolFiles::Read(files.Path("3.txt")), first);
    EXPECT_EQ(RunLvprop({"check", files.Path("1.txt")}).status, 0);
}

TEST_P(RealPlan, LosesWhatTheFormatsPromiseAndNothingElse)
{
    const ToolResult result = RunLvprop({"audit", routine, "--json"});
    const auto audit = nlohmann::json::parse(result.out, nullptr, false);
    EXPECT_EQ(audit["loadsWhole"], true);
    EXPECT_EQ(audit["savesEqual"], true);
    EXPECT_THAT(audit["faults"], IsEmpty());
    for (const auto& loss : audit["losses"])
        EXPECT_TRUE(IsPromisedLoss(loss)) << loss;
}

TEST_P(RealPlan, GoesToTheOtherUnitAndBack)
{
    const auto plan = nlohmann::json::parse(ToolFiles::Read(routine));
    const std::string own = plan["unitMode"];
    const std::string other = own == "metric" ? "imperial" : "metric";
    ASSERT_EQ(RunLvprop({"convert", routine, "--to", other, "-o", files.Path("there.json")}).status, 0);
    ASSERT_EQ(RunLvprop({"convert", files.Path("there.json"), "--to", own, "-o", files.Path("back.json")}).status, 0);
    // Four or five decimals do not show the last bits that the two factors change, save where a digit is on the edge.
    RunLvprop({"save", routine, "-o", files.Path("a.txt")});
    RunLvprop({"save", files.Path("back.json"), "-o", files.Path("b.txt")});
    const auto diff = nlohmann::json::parse(RunLvprop({"diff", files.Path("a.txt"), files.Path("b.txt"), "--json"}).out,
                                            nullptr, false);
    const size_t properties = plan["properties"].size();
    EXPECT_LE(diff["differences"].size(), properties / 100);
}

INSTANTIATE_TEST_SUITE_P(AllDocuments, RealPlan, testing::ValuesIn(kPlans), [](const auto& parameter) {
    std::string name = parameter.param.file;
    std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
    return name;
});

TEST(RealPlans, HaveTheToleranceTextsThatTheDrawingsCallFor)
{
    const ToolFiles files;
    const auto shownTexts = [&](const std::string& file) {
        RunLvprop({"import", SamplePath("qif/" + file), "-o", files.Path("plan.json")});
        const auto shown = nlohmann::json::parse(RunLvprop({"show", files.Path("plan.json"), "--json"}).out);
        std::multiset<std::string> texts;
        for (const auto& property : shown["properties"])
            if (property["type"] == "tolerance")
                texts.insert(property["shown"].get<std::string>());
        return texts;
    };
    EXPECT_TRUE(shownTexts("nist_ctc_03_asme1_ap242.qif").contains("4#10001FF¬0.05¬A¬B¬C"));
    EXPECT_TRUE(shownTexts("nist_ctc_05_asme1_ap242.qif").contains("4#925¬0.002¬A"));
    const auto eighth = shownTexts("nist_ftc_08_asme1_ap242-1.qif");
    EXPECT_TRUE(eighth.contains("4#46D¬0.015¬D¬H-J"));
    EXPECT_TRUE(eighth.contains("4#A01¬0.015"));
    const auto results = shownTexts("QIF_Results_Sample.QIF");
    EXPECT_TRUE(results.contains("4#30001FF¬1¬A¬D¬E"));
    EXPECT_TRUE(results.contains("1#1¬0¬10¬0.4¬-0.4"));
    EXPECT_TRUE(results.contains("1#3¬0¬0¬945.203¬944.803"));
}

TEST(RealPlans, KeepAScanPathInItsKnownLength)
{
    const ToolFiles files;
    RunLvprop({"import", SamplePath("qif/QIF_PTS_SAMPLE.QIF"), "-o", files.Path("plan.json")});
    RunLvprop({"save", files.Path("plan.json"), "-o", files.Path("plan.txt")});
    const auto records = nlohmann::json::parse(RunLvprop({"decode", files.Path("plan.txt"), "--json"}).out);
    size_t found = 0;
    for (const auto& record : records) {
        const std::string value = record["type"] == "scan_path_list" ? record["value"] : "";
        // 219 points, 218 line ends of one sign each.
        found += value.size() == 7226 && value.starts_with("    3.5452,    0.0037,   -1.8292#");
    }
    EXPECT_EQ(found, 1u);
}
