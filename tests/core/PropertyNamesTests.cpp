// The names of a property through its interface, given as text or waiting in a string resource.
#include "tests/core/ModelFixture.h"
#include "tests/support/TestStrings.h"

using testing::IsEmpty;

namespace {

class PropertyNames : public ModelTest {
protected:
    CComPtr<IqorProperty> property = Add({.id = 1, .module = ModuleWithStrings()});

    HRESULT SetName(TextView name) { return property->SetPropertyName(Bstr(name)); }
    /// A form of the name; its transaction must be open.
    Text Form(EprpPropertyNameStyle style) { return NameOf(property, style); }
    LONG ResId()
    {
        LONG id = -7;
        EXPECT_EQ(property->GetPropertyNameResID(&id), S_OK);
        return id;
    }
    bool IsMacroReport() { return FlagOf(property, &IqorProperty::IsMacroReportProperty); }
};

} // namespace

TEST_F(PropertyNames, ReportNullPointersAndAUsedOutString)
{
    ExpectNullPointer(property->GetPropertyName(E_PRP_PROP_NAME_STYLE_NONE, nullptr),
                      OLESTR("CprpProperty::GetPropertyName"), OLESTR("pbstrPropName"));
    CComBSTR used = Bstr(OLESTR("used"));
    ExpectBstrNotNull(property->GetPropertyName(E_PRP_PROP_NAME_STYLE_NONE, &used),
                      OLESTR("CprpProperty::GetPropertyName"), OLESTR("pbstrPropName"));
    ExpectNullPointer(property->GetPropertyNameResID(nullptr), OLESTR("CprpProperty::GetPropertyNameResID"),
                      OLESTR("pnNameResID"));
    ExpectNullPointer(property->IsMacroReportProperty(nullptr), OLESTR("CprpProperty::IsMacroReportProperty"),
                      OLESTR("pvbMacroReportProperty"));
}

TEST_F(PropertyNames, NeedATransactionExceptForTheTextAndTheMacroReportMark)
{
    CComBSTR name;
    LONG id = 0;
    ExpectNoTransaction(property->GetPropertyName(E_PRP_PROP_NAME_STYLE_NONE, &name));
    ExpectNoTransaction(property->GetPropertyNameResID(&id));
    ExpectNoTransaction(property->SetPropertyNameResID(-1));
    EXPECT_EQ(SetName(OLESTR("Bore")), S_OK);
    EXPECT_FALSE(IsMacroReport());
    InTransaction([&] { ExpectNegative(property->SetPropertyNameResID(-1)); });
}

TEST_F(PropertyNames, AreEmptyAtFirst)
{
    InTransaction([&] {
        for (const auto style : {E_PRP_PROP_NAME_STYLE_FULL, E_PRP_PROP_NAME_STYLE_STRIPPED,
                                 E_PRP_PROP_NAME_STYLE_MACRO_POST, E_PRP_PROP_NAME_STYLE_OXBEL_PLUGIN_REPORT}) {
            CComBSTR name;
            EXPECT_EQ(property->GetPropertyName(style, &name), S_OK);
            ASSERT_NE(name.m_str, nullptr);
            EXPECT_EQ(SysStringLen(name), 0U);
        }
        EXPECT_EQ(ResId(), 0);
    });
}

TEST_F(PropertyNames, HaveAFormForEachStyle)
{
    EXPECT_EQ(SetName(OLESTR("[MACRO REPORT PROP]Bore X-dim (mm) | Size")), S_OK);
    EXPECT_TRUE(IsMacroReport());
    InTransaction([&] {
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR("Bore X-dim (mm) : Size"));
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_STRIPPED), OLESTR("Bore X-dim : Size"));
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_MACRO_POST), OLESTR("BoreXdim"));
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_OXBEL_PLUGIN_REPORT), OLESTR("Size"));
    });
}

TEST_F(PropertyNames, HaveNoFormForAnyOtherStyle)
{
    EXPECT_EQ(SetName(OLESTR("Bore")), S_OK);
    InTransaction([&] {
        for (const LONG style : {0, 5, -1}) {
            CComBSTR name;
            ExpectInternal(property->GetPropertyName(static_cast<EprpPropertyNameStyle>(style), &name));
            EXPECT_EQ(name.m_str, nullptr);
        }
    });
}

TEST_F(PropertyNames, ThatAreSetAnnounceNothing)
{
    EXPECT_THAT(EventsOf([&] {
                    EXPECT_EQ(SetName(OLESTR("Bore")), S_OK);
                    EXPECT_EQ(property->SetPropertyNameResID(kPlainString), S_OK);
                    EXPECT_EQ(property->SetPropertyNameResID(0), S_OK);
                }),
                IsEmpty());
}

TEST_F(PropertyNames, GivenAsTextTakeTheResourceAway)
{
    InTransaction([&] {
        EXPECT_EQ(property->SetPropertyNameResID(kPlainString), S_OK);
        EXPECT_EQ(SetName(OLESTR("Bore")), S_OK);
        EXPECT_EQ(ResId(), -1);
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR("Bore"));
    });
}

TEST_F(PropertyNames, GivenAsAnEmptyTextStayEmpty)
{
    InTransaction([&] {
        EXPECT_EQ(SetName(OLESTR("Bore")), S_OK);
        EXPECT_EQ(property->SetPropertyName(nullptr), S_OK);
        EXPECT_EQ(ResId(), -1);
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR(""));
    });
}

TEST_F(PropertyNames, OfAResourceAreLoadedAtOnce)
{
    InTransaction([&] {
        EXPECT_EQ(property->SetPropertyNameResID(kMacroReportString), S_OK);
        EXPECT_TRUE(IsMacroReport());
        EXPECT_EQ(ResId(), kMacroReportString);
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR("Bore X-dim : Size"));
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_MACRO_POST), OLESTR("BoreXdim"));
    });
}

TEST_F(PropertyNames, AreClearedByAResourceThatIsMissingAndByIdZero)
{
    InTransaction([&] {
        for (const LONG id : {kMissingString, LONG{0}, LONG{0x10000} + kPlainString}) {
            EXPECT_EQ(property->SetPropertyNameResID(kMacroReportString), S_OK);
            EXPECT_EQ(property->SetPropertyNameResID(id), S_OK);
            EXPECT_EQ(ResId(), id);
            EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR(""));
            EXPECT_FALSE(IsMacroReport());
        }
    });
}

TEST_F(PropertyNames, ComeFromTheCollectionsModuleWhenThePropertyHasNone)
{
    property = Add(2, E_PROP_DT_LINEAR);
    InTransaction([&] {
        EXPECT_EQ(property->SetPropertyNameResID(kPlainString), S_OK);
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR(""));
        EXPECT_EQ(collection->SetDefaultResourceInstance(ModuleWithStrings()), S_OK);
        // The first call that asks for a name that is missing tries the resource again.
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR("Probe depth (mm)"));
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_STRIPPED), OLESTR("Probe depth"));
    });
}

TEST_F(PropertyNames, ComeFromTheCollectionsModuleWhenThePropertysOwnDoesNotHoldThem)
{
    property = Add({.id = 2, .module = ModuleWithoutStrings()});
    InTransaction([&] {
        EXPECT_EQ(collection->SetDefaultResourceInstance(ModuleWithStrings()), S_OK);
        EXPECT_EQ(property->SetPropertyNameResID(kPlainString), S_OK);
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR("Probe depth (mm)"));
    });
}

TEST_F(PropertyNames, ThatWaitInAResourceAreNoMacroReportNamesUntilTheyAreAskedFor)
{
    property = Add({.id = 2, .nameResID = kMacroReportString}); // no module yet: the name cannot be loaded
    EXPECT_FALSE(IsMacroReport());
    InTransaction([&] {
        EXPECT_EQ(property->SetHResModule(ModuleWithStrings()), S_OK);
        EXPECT_FALSE(IsMacroReport());
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_OXBEL_PLUGIN_REPORT), OLESTR("Size"));
        EXPECT_TRUE(IsMacroReport());
    });
}

TEST_F(PropertyNames, WithANoteWithoutAnEndKeepTheTextAndAreNotParsedAgain)
{
    ExpectInternal(SetName(OLESTR("Depth (mm")));
    InTransaction([&] {
        EXPECT_EQ(ResId(), -1);
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR("Depth (mm"));
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_STRIPPED), OLESTR("Depth (mm"));
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_MACRO_POST), OLESTR(""));
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_OXBEL_PLUGIN_REPORT), OLESTR(""));
    });
}

TEST_F(PropertyNames, OfAResourceWithANoteWithoutAnEndDoNotTakeItsId)
{
    InTransaction([&] {
        EXPECT_EQ(property->SetPropertyNameResID(kPlainString), S_OK);
        ExpectInternal(property->SetPropertyNameResID(kBrokenNoteString));
        EXPECT_EQ(ResId(), kPlainString);
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR("Broken (note"));
    });
}

TEST_F(PropertyNames, ThatWaitInAResourceWithANoteWithoutAnEndFailOnceWhenAskedFor)
{
    property = Add({.id = 2, .nameResID = kBrokenNoteString});
    InTransaction([&] {
        EXPECT_EQ(property->SetHResModule(ModuleWithStrings()), S_OK);
        CComBSTR name;
        ExpectInternal(property->GetPropertyName(E_PRP_PROP_NAME_STYLE_FULL, &name));
        EXPECT_EQ(name.m_str, nullptr);
        EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR("Broken (note"));
    });
}

TEST_F(PropertyNames, OfTheMarkerAloneAreEmptyAndMacroReportNames)
{
    EXPECT_EQ(SetName(OLESTR("[MACRO REPORT PROP]")), S_OK);
    EXPECT_TRUE(IsMacroReport());
    InTransaction([&] { EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), OLESTR("")); });
}

TEST_F(PropertyNames, LoseTheMacroReportMarkWithTheNextName)
{
    EXPECT_EQ(SetName(OLESTR("[MACRO REPORT PROP]Bore")), S_OK);
    EXPECT_EQ(SetName(OLESTR("Bore")), S_OK);
    EXPECT_FALSE(IsMacroReport());
}

TEST_F(PropertyNames, AreKeptByTheirLengthPrefix)
{
    EXPECT_EQ(SetName(TextView(OLESTR("A\0B"), 3)), S_OK);
    InTransaction([&] { EXPECT_EQ(Form(E_PRP_PROP_NAME_STYLE_FULL), TextView(OLESTR("A\0B"), 3)); });
}

TEST_F(PropertyNames, GoWithAClone)
{
    EXPECT_EQ(SetName(OLESTR("[MACRO REPORT PROP]Bore|Size")), S_OK);
    InTransaction([&] {
        CComPtr<IqorPropertyCollection> clone;
        ASSERT_EQ(collection->Clone(2, &clone), S_OK);
        Transact(clone, [&] {
            const auto copy = PropertyOf(clone, 1);
            EXPECT_EQ(NameOf(copy, E_PRP_PROP_NAME_STYLE_FULL), OLESTR("Bore : Size"));
            EXPECT_EQ(NameOf(copy, E_PRP_PROP_NAME_STYLE_OXBEL_PLUGIN_REPORT), OLESTR("Size"));
            EXPECT_TRUE(FlagOf(copy, &IqorProperty::IsMacroReportProperty));
        });
    });
}
