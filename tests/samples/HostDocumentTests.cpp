// What the sample host has open: routines, plans, saved lines.
#include "samples/host/Document.h"
#include "tests/tools/ToolFiles.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr const char* kRoutine = R"json({
  "routineVersion": 1,
  "properties": [
    {"id": 10, "name": "Probe", "type": "category"},
    {"id": 20, "parent": 10, "name": "Inner", "type": "category"},
    {"id": 26, "parent": 20, "name": "Depth", "type": "linear", "value": 25.4},
    {"id": 27, "name": "Note", "type": "string", "value": "first"}
  ]
})json";

class HostDocument : public testing::Test {
protected:
    const lumevor::Apartment apartment;
    ToolFiles files;
    std::string path = files.Write("plate.json", kRoutine);

    static double DepthOf(const Document& document)
    {
        const lumevor::Transaction transaction(document.Collection());
        return document.Collection().At(26).Double();
    }
    static void SetDepth(const Document& document, double depth)
    {
        const lumevor::Transaction transaction(document.Collection());
        document.Collection().At(26).SetDouble(depth);
    }
    /// The sentence of a file that can't be opened.
    static std::string Refusal(const std::string& file)
    {
        try {
            const Document document(file);
        } catch (const ToolError& error) {
            EXPECT_EQ(error.status, ExitStatus::WrongUse);
            return error.what();
        }
        ADD_FAILURE() << file << " was opened";
        return {};
    }
};

} // namespace

TEST_F(HostDocument, OpensARoutineWithItsValuesAndCallsItByItsName)
{
    const Document document(path);
    EXPECT_EQ(document.Name(), "plate.json");
    EXPECT_EQ(document.UnitMode(), E_METRIC);
    EXPECT_DOUBLE_EQ(DepthOf(document), 25.4);
    EXPECT_FALSE(document.HasChanges());
}

TEST_F(HostDocument, ListsParentsAheadOfTheirChildren)
{
    const Document document(path);
    EXPECT_THAT(document.Ids(), ElementsAre(10, 20, 26, 27));
    EXPECT_THAT(document.Parents(), ElementsAre(10, 20));
}

TEST_F(HostDocument, DescribesAPropertyByItsNameAndWhatIsWrongWithIt)
{
    const Document document(path);
    EXPECT_EQ(document.Describe(26), OLESTR("Depth"));
    EXPECT_EQ(document.Describe(99), OLESTR(""));
    {
        const lumevor::Transaction transaction(document.Collection());
        document.Collection().At(26).SetWarningText(OLESTR("odd"));
        document.Collection().At(27).SetErrorText(OLESTR("too long"));
    }
    EXPECT_EQ(document.Describe(26), OLESTR("Depth: odd"));
    EXPECT_EQ(document.Describe(27), OLESTR("Note: too long"));
}

TEST_F(HostDocument, TellsAPlanFromARoutineByItsContent)
{
    const Document plan(LV_SAMPLES "/data/qif/PlateResults_20_samples.QIF");
    EXPECT_GT(plan.Ids().size(), 100u);
    const Document routine(files.Write("routine.qif", kRoutine));
    EXPECT_EQ(routine.Ids().size(), 4u);
}

TEST_F(HostDocument, OpensTheRoutineThatComesWithTheHost)
{
    const Document document(LV_SAMPLES "/host/bore.json");
    EXPECT_EQ(document.Ids().size(), 28u);
}

TEST_F(HostDocument, RefusesWhatIsMissingOrNoDocumentWithItsName)
{
    EXPECT_THAT(Refusal(files.Path("missing.json")), HasSubstr("missing.json"));
    EXPECT_THAT(Refusal(files.Write("broken.json", "{\"routineVersion\": 1")), HasSubstr("broken.json"));
    EXPECT_THAT(Refusal(files.Write("page.html", "<html></html>")), HasSubstr("page.html"));
    EXPECT_THAT(Refusal(files.Write("empty.json", "")), HasSubstr("empty.json"));
}

TEST_F(HostDocument, ConvertsItsLengthsAndCountsThatAsAChange)
{
    Document document(path);
    document.ConvertTo(E_METRIC);
    EXPECT_FALSE(document.HasChanges()) << "it is metric already";
    document.ConvertTo(E_IMPERIAL);
    EXPECT_TRUE(document.HasChanges());
    EXPECT_DOUBLE_EQ(DepthOf(document), 1.0);
}

TEST_F(HostDocument, ASavedLineComesBackIntoTheSameRoutine)
{
    const std::string saved = files.Path("plate.txt");
    {
        Document document(path);
        SetDepth(document, 7.5);
        document.NoteChange();
        document.Save(saved);
        EXPECT_FALSE(document.HasChanges());
        EXPECT_EQ(document.SavedPath(), saved);
    }
    Document again(path);
    const LoadOutcome outcome = again.LoadSaved(saved);
    EXPECT_TRUE(outcome.isComplete);
    EXPECT_THAT(outcome.faults, IsEmpty());
    EXPECT_DOUBLE_EQ(DepthOf(again), 7.5);
    EXPECT_FALSE(again.HasChanges());
}

TEST_F(HostDocument, WhatFitsNowhereIsToldAndTheRestIsLoaded)
{
    Document document(path);
    const LoadOutcome outcome = document.LoadSaved(files.Write("odd.txt", "~1al1|212.5~3e7l1|25"));
    EXPECT_FALSE(outcome.isComplete);
    EXPECT_EQ(outcome.faults.size(), 1u);
    EXPECT_DOUBLE_EQ(DepthOf(document), 12.5);
}

TEST_F(HostDocument, ATextThatIsNoSavedLineIsRefusedAndChangesNothing)
{
    Document document(path);
    EXPECT_THROW(document.LoadSaved(files.Write("prose.txt", "Dear reader")), ToolError);
    EXPECT_DOUBLE_EQ(DepthOf(document), 25.4);
    EXPECT_EQ(document.SavedPath(), "");
}
