// The table of data types and that of parse messages, walked row by row.
#include "core/DataTypes.h"
#include "core/SavedRecord.h"

#include <gmock/gmock.h>

#include <functional>
#include <limits>
#include <set>

using testing::ElementsAre;

namespace {

/// Numbers of the types whose row is so.
std::vector<LONG> TypesWhose(const std::function<bool(const DataTypeRule&)>& isSo)
{
    std::vector<LONG> types;
    for (LONG type = 0; type < kDataTypeCount; ++type)
        if (isSo(RuleOf(type)))
            types.push_back(type);
    return types;
}

constexpr LONG kNoTypes[] = {-1, kDataTypeCount, std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::max()};

} // namespace

TEST(DataTypes, HaveOneRowEachInTheOrderOfTheirNumbers)
{
    for (LONG type = 0; type < kDataTypeCount; ++type)
        EXPECT_EQ(RuleOf(type).type, type);
    for (const LONG none : kNoTypes)
        EXPECT_EQ(&RuleOf(none), &RuleOf(E_PROP_DT_NONE));
}

TEST(DataTypes, HaveKeywordsThatAreTheirOwn)
{
    static constexpr const OLECHAR* kKeywords[] = {
        OLESTR("Unknown"),  OLESTR("angle"),          OLESTR("linear"),         OLESTR("long"),
        OLESTR("double"),   OLESTR("string"),         OLESTR("multi_string"),   OLESTR("tolerance"),
        OLESTR("position"), OLESTR("vector"),         OLESTR("enum"),           OLESTR("date"),
        OLESTR("form"),     OLESTR("statement"),      OLESTR("full_precision"), OLESTR("string_unicode"),
        OLESTR("dword"),    OLESTR("scan_path_list"), OLESTR("category"),       OLESTR("points_list")};
    static_assert(std::size(kKeywords) == kDataTypeCount);
    std::set<Text> all;
    for (LONG type = 0; type < kDataTypeCount; ++type) {
        EXPECT_EQ(TextView(DataTypeKeyword(type)), TextView(kKeywords[type]));
        EXPECT_TRUE(all.insert(DataTypeKeyword(type)).second);
    }
    for (const LONG none : kNoTypes)
        EXPECT_EQ(TextView(DataTypeKeyword(none)), OLESTR("Unknown"));
}

TEST(DataTypes, HaveOneCharacterEachInASavedRecord)
{
    Text characters;
    for (LONG type = 0; type < kDataTypeCount; ++type)
        characters += TypeCharacter(type);
    EXPECT_EQ(characters, OLESTR("0123456789klmnopqrst"));
}

TEST(DataTypes, MayBeEmptyInASavedRecordInFiveCases)
{
    EXPECT_THAT(TypesWhose([](const DataTypeRule& rule) { return rule.emptySavedValue; }),
                ElementsAre(E_PROP_DT_STRING_ANSI, E_PROP_DT_MULTI_STRING_UNICODE, E_PROP_DT_DATE,
                            E_PROP_DT_STRING_UNICODE, E_PROP_DT_CATEGORY));
}

TEST(DataTypes, AreConvertedInSixCases)
{
    EXPECT_THAT(TypesWhose([](const DataTypeRule& rule) { return rule.scaling != UnitScaling::None; }),
                ElementsAre(E_PROP_DT_LINEAR, E_PROP_DT_TOLERANCE, E_PROP_DT_POSITION, E_PROP_DT_VECTOR,
                            E_PROP_DT_FULL_PRECISION, E_PROP_DT_SCAN_PATH_LIST));
}

TEST(DataTypes, AreSavedWithoutEscapesWhereTheirTextHoldsNumbersAlone)
{
    EXPECT_THAT(TypesWhose([](const DataTypeRule& rule) { return rule.saved == SavedForm::Plain; }),
                ElementsAre(E_PROP_DT_ANGLE, E_PROP_DT_LINEAR, E_PROP_DT_DOUBLE, E_PROP_DT_POSITION, E_PROP_DT_VECTOR,
                            E_PROP_DT_FORM, E_PROP_DT_FULL_PRECISION));
    EXPECT_THAT(TypesWhose([](const DataTypeRule& rule) { return rule.saved == SavedForm::Refused; }),
                ElementsAre(E_PROP_DT_STRING_UNICODE));
}

TEST(ParseMessages, TellEachFaultInItsOwnWords)
{
    static constexpr const OLECHAR* kTexts[] = {
        nullptr,
        OLESTR("Delimiter not found."),
        OLESTR("Value not found - token 1ah2."),
        nullptr, // a text of the language libraries: the tests of loading read it
        OLESTR("PropertyID -7 was not found in the collection."),
        OLESTR("The string was empty."),
        OLESTR("Unknown property version"),
        OLESTR("Invalid property string"),
        OLESTR("Propertyid failed"),
        OLESTR("Data type mismatch"),
        OLESTR("Property not found"),
        OLESTR("Invalid data type"),
    };
    for (LONG error = E_PROP_PARSE_ERROR_DELIM_NOT_FOUND; error <= E_V1_PROP_PARSE_ERROR_INVALID_DATA_TYPE; ++error) {
        if (!kTexts[error])
            continue;
        EXPECT_EQ(ParseErrorText(static_cast<EprpParseError>(error), OLESTR("1ah2"), -7), TextView(kTexts[error]));
    }
    EXPECT_EQ(ParseErrorText(static_cast<EprpParseError>(12), OLESTR("1ah2"), -7),
              OLESTR("An unknown parsing error has occurred."));
}

TEST(ParseMessages, QuoteTheWholeTextOfAnyLengthAndEveryUnitOfIt)
{
    Text line = OLESTR("~%s%d\\$");
    line.append(std::size_t{1} << 20, OLECHAR{'x'}).append(1, OLECHAR{0}).append(OLESTR("\r\n"));
    EXPECT_EQ(ParseErrorMessage(E_V1_PROP_PARSE_ERROR_PROPERTYID_FAILED, {}, 0, line),
              OLESTR("A parsing error has occurred (Propertyid failed) at line: ") + line);
    EXPECT_EQ(ParseErrorMessage(E_PROP_PARSE_ERROR_VALUE_NOT_FOUND, OLESTR("%s%n"), 0, OLESTR("~")),
              OLESTR("A parsing error has occurred (Value not found - token %s%n.) at line: ~"));
}
