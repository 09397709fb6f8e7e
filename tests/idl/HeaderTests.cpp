// The generated header in this world: slot counts, enumerators and records.
#include "tests/idl/HeaderReader.h"
#include "tests/idl/RecordTable.h"

#include <gmock/gmock.h>

#include <algorithm>

using testing::ElementsAre;

namespace {

const HeaderReader& Header()
{
    static const HeaderReader s_header(LV_GENERATED_HEADER);
    return s_header;
}

std::vector<std::string> MethodsOf(const std::string& name)
{
    for (const auto& declared : Header().Interfaces())
        if (declared.name == name)
            return declared.methods;
    return {};
}

} // namespace

TEST(GeneratedHeader, DeclaresTheSlotsOfEachInterface)
{
    EXPECT_EQ(MethodsOf("IqorStream").size(), 28U);
    EXPECT_EQ(MethodsOf("IqorPropertyCollection").size(), 37U);
    EXPECT_EQ(MethodsOf("IqorProperty").size(), 69U);
    EXPECT_EQ(MethodsOf("IprpHelpInfo").size(), 6U);
    EXPECT_EQ(MethodsOf("IprpCollectionViewerCtrl").size(), 64U);
    EXPECT_THAT(MethodsOf("IprpVisibilityInfo"), ElementsAre("IsVisible", "AddControlProperties", "AddCtrlPropValues"));
}

TEST(GeneratedHeader, PutsTheFirstAndLastSlotsWhereTheyBelong)
{
    EXPECT_EQ(MethodsOf("IqorStream").front(), "Write");
    EXPECT_EQ(MethodsOf("IqorStream").back(), "LoadFromSafeArray");
    EXPECT_EQ(MethodsOf("IqorPropertyCollection").front(), "SetUniqueNumber");
    EXPECT_EQ(MethodsOf("IqorPropertyCollection").back(), "get_SaveEditFlags");
    EXPECT_EQ(MethodsOf("IqorProperty").front(), "GetNextChildProperty");
    EXPECT_EQ(MethodsOf("IqorProperty").back(), "RemoveAllPathPoints");
    EXPECT_EQ(MethodsOf("IprpCollectionViewerCtrl").front(), "putref_Font");
    EXPECT_EQ(MethodsOf("IprpCollectionViewerCtrl").back(), "CancelInPlaceEdit");
}

TEST(GeneratedHeader, NamesTheFieldsOfEachRecordInTheirOrder)
{
    const auto declared = Header().Records();
    for (const RecordPlace& record : kRecords) {
        const auto found =
            std::find_if(declared.begin(), declared.end(), [&](const auto& each) { return each.name == record.name; });
        ASSERT_NE(found, declared.end()) << record.name;
        std::vector<std::string> names;
        for (const FieldPlace& field : record.fields)
            names.push_back(field.name);
        EXPECT_EQ(found->fields, names) << record.name;
    }
}

TEST(GeneratedHeader, KeepsTheNumbersThatSavedTextsRestOn)
{
    EXPECT_EQ(E_PROP_DT_POINTS_LIST, 19);
    EXPECT_EQ(E_PROP_DT_ENUM, 10);
    EXPECT_EQ(E_PROP_ID_SPECIAL_UNUSED_SAVED_DATA, 0x12345678);
    EXPECT_EQ(E_GDT_TYPE_CYLINDRICITY, 13);
    EXPECT_EQ(E_STREAM_ORIGIN_END, -2);
    EXPECT_EQ(E_PRP_INFO_AVAILABLE_IN_MACRO_MODE, 32768);
    EXPECT_EQ(Header().Enums().size(), 28U);
}
