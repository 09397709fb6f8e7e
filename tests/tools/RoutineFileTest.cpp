#include "tools/lvprop/RoutineFile.h"
#include "tools/lvprop/ToolError.h"

#include <gmock/gmock.h>

#include <limits>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

std::string WithProperty(const std::string& members)
{
    return "{\"routineVersion\": 1, \"properties\": [\n{" + members + "}\n]}";
}

RoutineProperty PropertyOf(const std::string& members)
{
    return ParseRoutine("r.json", WithProperty(members)).properties.at(0);
}

std::string RefusalOf(const std::string& json)
{
    try {
        ParseRoutine("r.json", json);
    } catch (const ToolError& error) {
        EXPECT_EQ(error.status, ExitStatus::WrongUse);
        return error.what();
    }
    return "accepted";
}

/// One property of each data type with everything set that differs from its default.
Routine FullRoutine()
{
    Routine routine;
    routine.unitMode = E_IMPERIAL;
    routine.precision = -3;
    routine.collectionId = 12;
    routine.state = 5;
    routine.maxInputValue = 1e9;
    routine.saveEditFlags = false;
    routine.saveReadOnlyStates = false;
    routine.help.push_back({2, 1, "Say \"how\" to a user"});
    routine.help.push_back({-1, -1, "Any"});

    LONG id = 1;
    const auto add = [&](EprpPropDataType type, RoutineValue value) -> RoutineProperty& {
        RoutineProperty& property = routine.properties.emplace_back();
        property.id = id++;
        property.type = type;
        property.value = std::move(value);
        property.editFlags = DefaultEditFlags(type);
        return property;
    };
    add(E_PROP_DT_CATEGORY, std::string("General")).name = "General (all)";
    RoutineProperty& angle = add(E_PROP_DT_ANGLE, 0.1);
    angle.parent = 1;
    angle.lowerBound = {E_PRP_BOUND_LOGIC_GE, -0.5};
    angle.upperBound = {E_PRP_BOUND_LOGIC_NONE, 1e300};
    angle.error = "Out of range";
    angle.visibility = RoutineRule{{4, 11}, {{1, -1}, {2, 3}}};
    angle.postProcVisibility = RoutineRule{{4}, {}};
    RoutineProperty& linear = add(E_PROP_DT_LINEAR, -0.0);
    linear.visible = false;
    linear.visibleForPostProc = true;
    linear.readOnly = true;
    linear.alwaysSave = false;
    linear.noUnitConvert = true;
    linear.editFlags = LONG{E_PROP_EDIT_VALUE} | LONG{E_PRP_INFO_AVAILABLE_IN_MACRO_MODE};
    linear.linked = 2;
    linear.invalidCharacters = "";
    linear.warning = "Odd";
    add(E_PROP_DT_LONG, LONG{-5}).upperBound = {E_PRP_BOUND_LOGIC_LT, 9};
    add(E_PROP_DT_DOUBLE, 1.0 / 3).editFlags = 64;
    add(E_PROP_DT_STRING_ANSI, std::string("plain")).nameResource = 32001;
    add(E_PROP_DT_MULTI_STRING_UNICODE, std::string("a\r\nb \xC2\xB1"));

    RoutineTolerance tolerance;
    tolerance.type = E_TOL_TYPE_RECTANGULAR;
    tolerance.markAsDefault = true;
    tolerance.linear[1] = {E_TOL_STATUS_OUT_OF_TOL, false, 10, 0.5, -0.5, 10.7, 0.2, true, 3};
    tolerance.form = RoutineFormTolerance{E_TOL_STATUS_IN_TOL, false, 1, 2, 3, true};
    add(E_PROP_DT_TOLERANCE, tolerance);
    RoutineTolerance frame;
    frame.type = E_TOL_TYPE_GDT_RECTANGULAR;
    frame.markAsNone = true;
    frame.geometric[2] = {E_TOL_STATUS_IN_TOL,
                          true,
                          E_GDT_TYPE_FLATNESS,
                          E_GDT_MAT_MOD_LMC,
                          0.05,
                          0.04,
                          0.01,
                          {"A", "", "E-F"},
                          {true, true, false},
                          true,
                          31};
    add(E_PROP_DT_TOLERANCE, frame);

    add(E_PROP_DT_POSITION, RoutinePoint{1, 2.5, -3});
    add(E_PROP_DT_ENUM, LONG{2}).enumItems = {{0, 1, 0, "One", true}, {5, 2, 32002, "", false}, {6, 3, 0, "x", true}};
    add(E_PROP_DT_DATE, std::string("2024-02-29"));
    add(E_PROP_DT_FORM, 7.0);
    RoutineProperty& statement = add(E_PROP_DT_STATEMENT, {});
    statement.text = "G01 X1~2|3";
    add(E_PROP_DT_FULL_PRECISION, 0.123456789012);
    add(E_PROP_DT_STRING_UNICODE, std::string()).alwaysSave = false;
    add(E_PROP_DT_DWORD, static_cast<LONG>(0xFFFFFFFEu));
    add(E_PROP_DT_SCAN_PATH_LIST, RoutinePath{{0, 0, 0}, {1e-7, 2, 3}});
    add(E_PROP_DT_VECTOR, RoutinePoint{0, 0, 1});
    add(E_PROP_DT_POINTS_LIST, std::string("p"));
    add(E_PROP_DT_NONE, {});
    return routine;
}

} // namespace

TEST(RoutineFile, GivesBackWhatWasWrittenToTheLastBit)
{
    const Routine routine = FullRoutine();
    const std::string json = WriteRoutine(routine);
    const Routine again = ParseRoutine("r.json", json);
    EXPECT_EQ(again, routine);
    EXPECT_EQ(WriteRoutine(again), json);
    EXPECT_TRUE(std::signbit(std::get<double>(again.properties[2].value))) << "a negative zero stays one";
}

TEST(RoutineFile, WritesNothingThatIsAsUsual)
{
    Routine routine;
    RoutineProperty property;
    property.id = 7;
    property.type = E_PROP_DT_LINEAR;
    routine.properties.push_back(property);
    EXPECT_EQ(WriteRoutine(routine), "{\n"
                                     "  \"routineVersion\": 1,\n"
                                     "  \"unitMode\": \"metric\",\n"
                                     "  \"properties\": [\n"
                                     "    {\n"
                                     "      \"id\": 7,\n"
                                     "      \"type\": \"linear\"\n"
                                     "    }\n"
                                     "  ]\n"
                                     "}\n");
}

TEST(RoutineFile, TakesUsualValuesForWhatIsNotTold)
{
    const RoutineProperty linear = PropertyOf("\"id\": 1, \"type\": \"linear\"");
    EXPECT_TRUE(linear.visible && linear.alwaysSave && !linear.readOnly);
    EXPECT_EQ(linear.parent, E_PROP_ID_TOP_LEVEL);
    EXPECT_EQ(linear.editFlags, E_PROP_EDIT_VALUE);
    EXPECT_EQ(PropertyOf("\"id\": 1, \"type\": \"category\"").editFlags, E_PROP_EDIT_NONE);
}

TEST(RoutineFile, MakesANamedDatumActiveUnlessToldOtherwise)
{
    const RoutineProperty property = PropertyOf("\"id\": 1, \"type\": \"tolerance\", \"value\": {\"type\": "
                                                "\"geometric\", \"x\": {\"kind\": \"position\", \"datums\": "
                                                "[\"A\", \"\", \"C\"]}}");
    const auto& part = std::get<RoutineTolerance>(property.value).geometric[0];
    EXPECT_EQ(part.datumActive, (std::array{true, false, true}));
}

TEST(RoutineFile, TellsLineKeyAndReasonOfAFault)
{
    EXPECT_EQ(RefusalOf(WithProperty("\"id\": 1,\n\"type\": \"linar\"")),
              "r.json:3: /properties/0/type: unknown word \"linar\"; known are none, angle, linear, long, double, "
              "string, multi_string, tolerance, position, vector, enum, date, form, statement, full_precision, "
              "string_unicode, dword, scan_path_list, category, points_list");
    EXPECT_EQ(RefusalOf(WithProperty("\"id\": 0,\n\"type\": \"linear\"")),
              "r.json:2: /properties/0/id: expected a whole number from 1 to 2147483647");
    EXPECT_EQ(RefusalOf(WithProperty("\"id\": 1")), "r.json:2: /properties/0: the key \"type\" is missing");
    EXPECT_EQ(RefusalOf(WithProperty("\"id\": 1, \"type\": \"position\",\n\n\"value\": [1, 2]")),
              "r.json:4: /properties/0/value: expected three numbers");
    EXPECT_EQ(RefusalOf(WithProperty("\"id\": 1, \"type\": \"linear\", \"value\": 5\n, \"colour\": 3")),
              "r.json:3: /properties/0/colour: unknown key; known are id, type, parent, name, nameResource, value, "
              "text, visible, visibleForPostProc, readOnly, alwaysSave, noUnitConvert, editFlags, linked, enumItems, "
              "bounds, invalidCharacters, visibility, postProcVisibility, error, warning");
}

TEST(RoutineFile, TellsTheLineOfABareNumberAtALineEnd)
{
    EXPECT_THAT(RefusalOf(WithProperty("\"type\": \"linear\", \"id\":\n-4\n")),
                StartsWith("r.json:3: /properties/0/id:"));
}

TEST(RoutineFile, TellsWhereTheJsonIsBroken)
{
    EXPECT_THAT(RefusalOf("{\"routineVersion\": 1,\n\"properties\": [\n  {\"id\" 4}]}"),
                testing::AllOf(StartsWith("r.json:3: /properties/0"), HasSubstr("syntax error")));
    EXPECT_THAT(RefusalOf(""), HasSubstr("syntax error"));
    EXPECT_THAT(RefusalOf("\xFF\xFE"), HasSubstr("syntax error"));
    EXPECT_THAT(RefusalOf("{} x"), HasSubstr("syntax error"));
}

TEST(RoutineFile, RefusesDoubledKeysAndDeepNesting)
{
    EXPECT_THAT(RefusalOf(WithProperty("\"id\": 1, \"id\": 2")), HasSubstr("/properties/0/id: the key stands twice"));
    EXPECT_THAT(RefusalOf(std::string(100000, '[')), HasSubstr("nested deeper than 64 levels"));
}

TEST(RoutineFile, RefusesIdsThatMeetAndParentsThatDoNotStandAhead)
{
    const std::string one = "{\"id\": 1, \"type\": \"long\"}";
    EXPECT_THAT(RefusalOf("{\"routineVersion\": 1, \"properties\": [" + one + ",\n" + one + "]}"),
                "r.json:2: /properties/1/id: another property has the id 1");
    EXPECT_THAT(RefusalOf(WithProperty("\"id\": 1, \"parent\": 2, \"type\": \"long\"")),
                HasSubstr("/properties/0/parent: no property ahead of this one has the id 2"));
}

TEST(RoutineFile, RefusesAVersionThatItDoesNotKnow)
{
    EXPECT_EQ(RefusalOf("{\"routineVersion\": 2, \"properties\": []}"),
              "r.json:1: /routineVersion: this program reads version 1");
}

TEST(RoutineFile, RefusesNumbersOutOfTheirRange)
{
    EXPECT_THAT(RefusalOf(WithProperty("\"id\": 1, \"type\": \"dword\", \"value\": 4294967296")),
                HasSubstr("from 0 to 4294967295"));
    EXPECT_THAT(RefusalOf(WithProperty("\"id\": 1, \"type\": \"long\", \"value\": 1.5")), HasSubstr("a whole number"));
    EXPECT_THAT(RefusalOf(WithProperty("\"id\": 1, \"type\": \"linear\", \"value\": 1e999")), HasSubstr("r.json:2"));
}
