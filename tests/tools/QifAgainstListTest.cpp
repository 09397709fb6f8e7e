// The geometric kinds of the sample documents against the list of annotations that the makers of the test cases give:
// a check that shares no reader with the import.
#include "tests/tools/Samples.h"
#include "tools/lvprop/QifImport.h"

#include <map>

namespace {

using Kinds = std::map<std::string, size_t>;

/// What the list calls a kind, as the import calls it.
const std::map<std::string, std::string> kKindOfAnnotation = {
    {"Angularity tolerance", "Angularity"},     {"Circular runout tolerance", "CircularRunout"},
    {"Coaxiality tolerance", "Concentricity"},  {"Flatness tolerance", "Flatness"},
    {"Parallelism tolerance", "Parallelism"},   {"Perpendicularity tolerance", "Perpendicularity"},
    {"Position tolerance", "Position"},         {"Roundness tolerance", "Circularity"},
    {"Straightness tolerance", "Straightness"}, {"Surface profile tolerance", "SurfaceProfile"},
    {"Total runout tolerance", "TotalRunout"},
};

/// The annotation's own text holds commas; the case stands ahead of the first, the kind behind the last.
Kinds ListedKinds(const std::string& testCase)
{
    Kinds kinds;
    std::istringstream list(ReadSample("expected/CTC-FTC-Test-Cases.csv"));
    for (std::string line; std::getline(list, line);) {
        if (!line.starts_with(testCase + ","))
            continue;
        std::string annotation = line.substr(line.rfind(',') + 1);
        while (!annotation.empty() && (annotation.back() == '\r' || annotation.back() == '"'))
            annotation.pop_back();
        if (const auto kind = kKindOfAnnotation.find(annotation); kind != kKindOfAnnotation.end())
            ++kinds[kind->second];
    }
    return kinds;
}

Kinds ImportedKinds(const std::string& file)
{
    Kinds kinds;
    for (const QifKindCount& entry : ImportQif(file, ReadSample("qif/" + file), {}).report.definitions)
        if (entry.family == QifFamily::Geometric)
            kinds[entry.kind] = entry.count;
    return kinds;
}

} // namespace

TEST(QifAgainstList, BothProducersOfTheThirdCaseHaveTheListedKinds)
{
    ASSERT_FALSE(ListedKinds("CTC 03").empty());
    EXPECT_EQ(ImportedKinds("nist_ctc_03_asme1_ap242.qif"), ListedKinds("CTC 03"));
    EXPECT_EQ(ImportedKinds("nist_ctc_03_asme1_cr2040_rc.qif"), ListedKinds("CTC 03"));
}

TEST(QifAgainstList, TheFifthCaseHasTheListedKinds)
{
    ASSERT_FALSE(ListedKinds("CTC 05").empty());
    EXPECT_EQ(ImportedKinds("nist_ctc_05_asme1_ap242.qif"), ListedKinds("CTC 05"));
}

TEST(QifAgainstList, TheEighthCaseHasOnePositionMoreAndLacksTheGeneralProfile)
{
    Kinds expected = ListedKinds("FTC 08");
    ++expected["Position"];
    --expected["SurfaceProfile"];
    EXPECT_EQ(ImportedKinds("nist_ftc_08_asme1_ap242-1.qif"), expected);
}
