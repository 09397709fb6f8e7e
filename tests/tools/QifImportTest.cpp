#include "tools/lvprop/QifImport.h"
#include "tests/tools/Samples.h"
#include "tools/lvprop/RoutineFile.h"
#include "tools/lvprop/ToolError.h"

#include <gmock/gmock.h>

#include <functional>
#include <set>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

QifImportResult Import(const std::string& file, const QifOptions& options = {})
{
    return ImportQif(file, ReadSample("qif/" + file), options);
}

using Kinds = std::map<std::string, size_t>;

Kinds KindsOf(const QifReport& report, QifFamily family)
{
    Kinds kinds;
    for (const QifKindCount& entry : report.definitions)
        if (entry.family == family)
            kinds[entry.kind] = entry.count;
    return kinds;
}

size_t CountOf(const std::map<std::string, size_t>& counts, const std::string& kind)
{
    const auto found = counts.find(kind);
    return found == counts.end() ? 0 : found->second;
}

const RoutineProperty& Find(const Routine& routine, const std::function<bool(const RoutineProperty&)>& matches)
{
    for (const RoutineProperty& property : routine.properties)
        if (matches(property))
            return property;
    throw std::runtime_error("no such property");
}

/// The first property of that name in a category of that title.
const RoutineProperty& Find(const Routine& routine, const std::string& category, const std::string& name)
{
    std::set<LONG> categories;
    return Find(routine, [&](const RoutineProperty& property) {
        if (property.name == category && property.type == E_PROP_DT_CATEGORY)
            categories.insert(property.id);
        return property.name == name && categories.contains(property.parent);
    });
}

const RoutineTolerance& ToleranceIn(const Routine& routine, const std::string& category,
                                    const std::string& name = "Tolerance")
{
    return std::get<RoutineTolerance>(Find(routine, category, name).value);
}

struct Expected {
    const char* file;
    const char* version;
    EprpUnitMode unitMode;
    Kinds geometric;
    Kinds linear;
    Kinds angular;
    Kinds none;
    size_t datums, frames, nominalFeatures, diametralZones;
    size_t measuredFeatures, measuredValues; ///< of the kinds that have a counterpart
};

const Expected kExpected[] = {
    {"nist_ctc_03_asme1_ap242.qif",
     "3.0.0",
     E_METRIC,
     {{"Position", 6}, {"SurfaceProfile", 3}, {"Perpendicularity", 2}, {"Angularity", 1}, {"Flatness", 1}},
     {{"Diameter", 7}, {"Width", 1}, {"DistanceBetween", 1}},
     {},
     {},
     6,
     6,
     19,
     7,
     0,
     0},
    {"nist_ctc_03_asme1_cr2040_rc.qif",
     "3.0.0",
     E_IMPERIAL,
     {{"Position", 6}, {"SurfaceProfile", 3}, {"Perpendicularity", 2}, {"Angularity", 1}, {"Flatness", 1}},
     {{"DistanceBetween", 57}, {"Radius", 25}, {"Length", 16}, {"Diameter", 14}, {"Width", 7}},
     {{"AngleBetween", 5}},
     {},
     6,
     6,
     160,
     7,
     0,
     0},
    {"nist_ctc_05_asme1_ap242.qif",
     "3.0.0",
     E_IMPERIAL,
     {{"CircularRunout", 3},
      {"TotalRunout", 2},
      {"Perpendicularity", 2},
      {"Concentricity", 1},
      {"Straightness", 1},
      {"Circularity", 1}},
     {{"DistanceBetween", 3}, {"Diameter", 1}, {"Length", 1}, {"Width", 1}},
     {},
     {},
     4,
     4,
     17,
     1,
     0,
     0},
    {"nist_ftc_08_asme1_ap242-1.qif",
     "3.0.0",
     E_IMPERIAL,
     {{"SurfaceProfile", 10}, {"Position", 8}, {"Parallelism", 5}, {"Flatness", 3}, {"Perpendicularity", 1}},
     {{"Diameter", 9}, {"DistanceBetween", 1}},
     {},
     {},
     11,
     9,
     38,
     9,
     0,
     0},
    {"QIF_PTS_SAMPLE.QIF",
     "3.0.0",
     E_METRIC,
     {{"Position", 2}, {"Circularity", 2}, {"Flatness", 1}, {"Perpendicularity", 1}, {"Parallelism", 1}},
     {{"LinearCoordinate", 6}, {"Diameter", 4}, {"DistanceBetween", 1}},
     {{"AngleBetween", 1}},
     {{"PointProfile", 4}},
     2,
     3,
     14,
     3,
     14,
     19},
    {"QIF_Results_Sample.QIF",
     "3.0.0",
     E_METRIC,
     {{"Position", 2}},
     {{"Diameter", 3}, {"LinearCoordinate", 3}, {"DistanceBetween", 1}},
     {},
     {{"PointProfile", 2}},
     5,
     3,
     6,
     2,
     6,
     9},
    {"WIDGET_QIF_RESULTS.QIF",
     "3.0.0",
     E_METRIC,
     {{"Position", 5}, {"Flatness", 5}, {"Perpendicularity", 2}, {"Angularity", 1}},
     {{"Diameter", 4}, {"DistanceBetween", 4}, {"Width", 1}},
     {},
     {{"PointProfile", 4}},
     5,
     7,
     19,
     4,
     19,
     28},
    {"PlateResults_20_samples.QIF",
     "2.1.0",
     E_METRIC,
     {{"Position", 1}, {"Perpendicularity", 1}, {"Flatness", 1}},
     {{"Diameter", 5}, {"DistanceBetween", 4}, {"Length", 2}, {"Width", 2}, {"Radius", 1}},
     {},
     {},
     2,
     2,
     22,
     2,
     440,
     620},
};

class QifSample : public testing::TestWithParam<Expected> {};

} // namespace

TEST_P(QifSample, HasTheKnownCountsByKind)
{
    const Expected& expected = GetParam();
    const QifReport report = Import(expected.file).report;
    EXPECT_EQ(report.version, expected.version);
    EXPECT_EQ(KindsOf(report, QifFamily::Geometric), expected.geometric);
    EXPECT_EQ(KindsOf(report, QifFamily::Linear), expected.linear);
    EXPECT_EQ(KindsOf(report, QifFamily::Angular), expected.angular);
    EXPECT_EQ(KindsOf(report, QifFamily::None), expected.none);
    EXPECT_EQ(CountOf(report.carried, "datums"), expected.datums);
    EXPECT_EQ(CountOf(report.carried, "datum reference frames"), expected.frames);
    EXPECT_EQ(CountOf(report.carried, "nominal features"), expected.nominalFeatures);
    EXPECT_EQ(CountOf(report.carried, "diametral zones"), expected.diametralZones);
    EXPECT_EQ(CountOf(report.carried, "measured features"), expected.measuredFeatures);
    EXPECT_EQ(CountOf(report.carried, "measured values"), expected.measuredValues);
}

TEST_P(QifSample, GivesARoutineThatItsFileKeepsWhole)
{
    const QifImportResult result = Import(GetParam().file);
    EXPECT_EQ(result.routine.unitMode, GetParam().unitMode);
    EXPECT_EQ(ParseRoutine("r.json", WriteRoutine(result.routine)), result.routine);
}

TEST_P(QifSample, GivesOneToleranceForEachDefinitionThatHasACounterpart)
{
    const QifImportResult result = Import(GetParam().file);
    const LONG heading = Find(result.routine, [](const auto& p) { return p.name == "Characteristics"; }).id;
    size_t categories = 0;
    for (const RoutineProperty& property : result.routine.properties)
        categories += property.parent == heading;
    const QifReport& report = result.report;
    const size_t joined = CountOf(report.altered, "linear coordinates joined by threes into rectangular tolerances");
    EXPECT_EQ(categories, report.CountOf(QifFamily::Geometric) + report.CountOf(QifFamily::Linear) +
                              report.CountOf(QifFamily::Angular) - joined / 3 * 2);
}

TEST_P(QifSample, CutAnywhereIsRefusedWithASentence)
{
    const std::string bytes = ReadSample(std::string("qif/") + GetParam().file);
    for (const size_t part : {0U, 1U, 7U, 40U, 99U}) {
        const std::string cut = bytes.substr(0, bytes.size() * part / 100);
        EXPECT_THROW(ImportQif("cut.qif", cut, {}), ToolError) << part << " percent";
    }
}

INSTANTIATE_TEST_SUITE_P(AllDocuments, QifSample, testing::ValuesIn(kExpected), [](const auto& parameter) {
    std::string name = parameter.param.file;
    std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
    return name;
});

TEST(QifImport, TakesAPositionWithZoneModifierAndDatums)
{
    const Routine routine = Import("nist_ctc_03_asme1_ap242.qif").routine;
    const RoutineTolerance& tolerance = ToleranceIn(routine, "Position 20");
    ASSERT_EQ(tolerance.type, E_TOL_TYPE_GDT_LINEAR);
    const RoutineGeometricTolerance& part = tolerance.geometric[0];
    EXPECT_EQ(part.kind, E_GDT_TYPE_TRUE_POSITION);
    EXPECT_EQ(part.modifier, E_GDT_MAT_MOD_MMC);
    EXPECT_EQ(part.value, 0.05);
    EXPECT_TRUE(part.radial);
    EXPECT_THAT(part.datums, ElementsAre("A", "B", "C"));
}

TEST(QifImport, ConvertsAValueThatNamesAnotherUnitThanTheFile)
{
    const Routine routine = Import("nist_ctc_03_asme1_ap242.qif").routine;
    EXPECT_DOUBLE_EQ(std::get<double>(Find(routine, "Diameter 6", "Nominal").value), 11.1252);
}

TEST(QifImport, JoinsTheLettersOfACommonDatum)
{
    const Routine routine = Import("nist_ftc_08_asme1_ap242-1.qif").routine;
    const auto isCommon = [](const RoutineProperty& property) {
        const auto* tolerance = std::get_if<RoutineTolerance>(&property.value);
        return tolerance && tolerance->geometric[0].datums[1] == "H-J";
    };
    const auto& part = std::get<RoutineTolerance>(Find(routine, isCommon).value).geometric[0];
    EXPECT_EQ(part.kind, E_GDT_TYPE_SURFACE_PROFILE);
    EXPECT_EQ(part.value, 0.015);
    EXPECT_EQ(part.datums[0], "D");
}

TEST(QifImport, GivesTheSecondLineOfACompositeFrameAPropertyOfItsOwn)
{
    const QifImportResult result = Import("nist_ftc_08_asme1_ap242-1.qif");
    EXPECT_EQ(CountOf(result.report.carried, "further lines of composite frames"), 6u);
    size_t lines = 0;
    for (const RoutineProperty& property : result.routine.properties)
        lines += property.name == "Second line";
    EXPECT_EQ(lines, 6u);
}

TEST(QifImport, KeepsLimitsWithoutANominalAndNominalsWithoutLimits)
{
    const QifImportResult result = Import("QIF_Results_Sample.QIF");
    const RoutineTolerance& limits = ToleranceIn(result.routine, "LinearCoordinate 3");
    EXPECT_TRUE(limits.linear[0].absolute);
    EXPECT_EQ(limits.linear[0].nominal, 0);
    EXPECT_EQ(limits.linear[0].upper, 945.20274658203107);
    EXPECT_EQ(limits.linear[0].lower, 944.80274658203098);
    EXPECT_FALSE(limits.markAsNone);
    const RoutineTolerance& basic = ToleranceIn(result.routine, "LinearCoordinate 1");
    EXPECT_TRUE(basic.markAsNone);
    EXPECT_EQ(basic.linear[0].nominal, 2466.729248046875);
    EXPECT_EQ(CountOf(result.report.carried, "limits as absolute values"), 2u);
    EXPECT_EQ(CountOf(result.report.altered, "dimensions without limits (marked as none)"), 2u);
}

TEST(QifImport, JoinsThreeCoordinatesOfAFeatureWithTheirMeasuredValues)
{
    const Routine routine = Import("QIF_PTS_SAMPLE.QIF").routine;
    const auto isJoined = [](const RoutineProperty& property) {
        const auto* tolerance = std::get_if<RoutineTolerance>(&property.value);
        return tolerance && tolerance->type == E_TOL_TYPE_RECTANGULAR &&
               tolerance->linear[0].status != E_TOL_STATUS_NOT_CALCULATED;
    };
    const auto& axes = std::get<RoutineTolerance>(Find(routine, isJoined).value).linear;
    EXPECT_EQ(axes[0].nominal, -33.049999999999997);
    EXPECT_EQ(axes[1].nominal, -4.35);
    EXPECT_EQ(axes[2].nominal, -1.309995069701);
    EXPECT_EQ(axes[0].upper, 0.05);
    EXPECT_EQ(axes[0].measured, -33.202287934878001);
    EXPECT_EQ(axes[0].status, E_TOL_STATUS_OUT_OF_TOL);
    EXPECT_EQ(axes[1].status, E_TOL_STATUS_IN_TOL);
}

TEST(QifImport, TakesProbedPointsAroundTheCommentsBetweenThem)
{
    const QifImportResult result = Import("QIF_PTS_SAMPLE.QIF");
    EXPECT_EQ(CountOf(result.report.carried, "probed point sets"), 12u);
    EXPECT_EQ(CountOf(result.report.carried, "probed points"), 691u);
    const auto& path = std::get<RoutinePath>(Find(result.routine, "Point set 29", "Points").value);
    ASSERT_EQ(path.size(), 219u);
    EXPECT_EQ(path[0], (RoutinePoint{3.54516458565, 0.0037440421, -1.82916012241}));
    EXPECT_EQ(std::get<double>(Find(result.routine, "Point set 29", "Probe radius").value), 2.49978271104);
}

TEST(QifImport, TellsAReferenceToTheWrongKindOfElement)
{
    const QifReport report = Import("QIF_PTS_SAMPLE.QIF").report;
    EXPECT_THAT(report.faults, ElementsAre(HasSubstr("id 828 is a PointFeatureMeasurement, not a MeasuredPointSet")));
    EXPECT_EQ(CountOf(report.altered, "probed point sets that no feature uses (kept)"), 2u);
}

TEST(QifImport, GivesEachOfTwentyPartsItsOwnResults)
{
    const QifImportResult result = Import("PlateResults_20_samples.QIF");
    EXPECT_EQ(CountOf(result.report.carried, "measured parts"), 20u);
    EXPECT_EQ(CountOf(result.report.carried, "measured values with status PASS"), 569u);
    EXPECT_EQ(CountOf(result.report.carried, "measured values with status FAIL"), 51u);
    const RoutineLinearTolerance& first =
        ToleranceIn(result.routine, "Characteristics", "Diameter DIAMETER4: CYLINDER1").linear[0];
    EXPECT_EQ(first.measured, 4.486);
    EXPECT_EQ(first.status, E_TOL_STATUS_IN_TOL);
    EXPECT_EQ(first.upper, 0.508);
}

TEST(QifImport, KeepsANegativeToleranceAsGiven)
{
    const QifImportResult result = Import("PlateResults_20_samples.QIF");
    EXPECT_EQ(ToleranceIn(result.routine, "Perpendicularity PERPENDICULARITY1").geometric[0].value, -0.13);
    EXPECT_EQ(CountOf(result.report.altered, "geometric tolerances with a negative value (as given)"), 1u);
}

TEST(QifImport, KeepsDirectionsOutOfUnitConversion)
{
    const Routine routine = Import("nist_ctc_05_asme1_ap242.qif").routine;
    for (const RoutineProperty& property : routine.properties)
        EXPECT_EQ(property.type == E_PROP_DT_VECTOR, property.noUnitConvert) << property.id;
}

TEST(QifImport, TellsEveryKindWithoutACounterpartByKindAndCount)
{
    const QifReport report = Import("QIF_PTS_SAMPLE.QIF").report;
    EXPECT_EQ(CountOf(report.left, "CharacteristicDefinitions/PointProfileCharacteristicDefinition"), 4u);
    EXPECT_EQ(CountOf(report.left, "CharacteristicMeasurements/PointProfileCharacteristicMeasurement"), 8u);
    EXPECT_EQ(CountOf(report.left, "material modifier REGARDLESS on a datum of a feature control frame"), 2u);
    const QifReport model = Import("nist_ftc_08_asme1_ap242-1.qif").report;
    EXPECT_EQ(CountOf(model.left, "PointSet/Point"), 842u);
    EXPECT_EQ(CountOf(model.left, "TangentPlane"), 0u);
    EXPECT_EQ(CountOf(model.left, "ParallelismCharacteristicDefinition/TangentPlane"), 3u);
}

TEST(QifImport, WritesModifiersIntoDatumNamesOnlyWhenAsked)
{
    const Routine routine = Import("QIF_Results_Sample.QIF", {{}, true}).routine;
    const auto hasModifier = [](const RoutineProperty& property) {
        const auto* tolerance = std::get_if<RoutineTolerance>(&property.value);
        return tolerance && tolerance->geometric[0].datums[1].ends_with("(M)");
    };
    EXPECT_NO_THROW(Find(routine, hasModifier));
    EXPECT_THROW(Find(Import("QIF_Results_Sample.QIF").routine, hasModifier), std::runtime_error);
}

TEST(QifImport, AsksForAUnitWhereTheDocumentNamesNone)
{
    const std::string bare = "<QIFDocument versionQIF=\"3.0.0\"/>";
    try {
        ImportQif("bare.qif", bare, {});
        FAIL() << "accepted";
    } catch (const ToolError& error) {
        EXPECT_STREQ(error.what(), "bare.qif: the document names no linear unit; say --unit mm or --unit inch");
    }
    EXPECT_EQ(ImportQif("bare.qif", bare, {"inch", false}).routine.unitMode, E_IMPERIAL);
    EXPECT_EQ(ImportQif("bare.qif", bare, {"mm", false}).routine.unitMode, E_METRIC);
}

TEST(QifImport, RefusesOtherDocumentsAndVersions)
{
    EXPECT_THROW(ImportQif("a", "<html/>", {}), ToolError);
    EXPECT_THROW(ImportQif("a", "<QIFDocument/>", {}), ToolError);
    EXPECT_THROW(ImportQif("a", "<QIFDocument versionQIF='4.0.0'/>", {"mm", false}), ToolError);
}

TEST(QifImport, GoesOnAfterAValueThatIsNoNumber)
{
    const std::string document = "<QIFDocument versionQIF='3.0.0'>\n<Characteristics><CharacteristicDefinitions>\n"
                                 "<FlatnessCharacteristicDefinition id='1'><ToleranceValue>0,5</ToleranceValue>\n"
                                 "</FlatnessCharacteristicDefinition>"
                                 "<FlatnessCharacteristicDefinition id='2'><ToleranceValue>0.5</ToleranceValue>\n"
                                 "</FlatnessCharacteristicDefinition>"
                                 "</CharacteristicDefinitions></Characteristics></QIFDocument>";
    const QifImportResult result = ImportQif("a.qif", document, {"mm", false});
    EXPECT_THAT(result.report.faults, ElementsAre("a.qif:3: ToleranceValue: \"0,5\" is no number"));
    EXPECT_EQ(ToleranceIn(result.routine, "Flatness #2").geometric[0].value, 0.5);
}

TEST(QifImport, GivesOtherBracketsToANameWhoseNoteNeverEnds)
{
    const std::string document = "<QIFDocument versionQIF='3.0.0'><Features><FeatureNominals>"
                                 "<PointFeatureNominal id='1'><Name>Bore (left</Name></PointFeatureNominal>"
                                 "</FeatureNominals></Features></QIFDocument>";
    const Routine routine = ImportQif("a.qif", document, {"mm", false}).routine;
    EXPECT_NO_THROW(Find(routine, [](const auto& property) { return property.name == "Bore [left"; }));
}
