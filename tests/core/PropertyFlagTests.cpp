// Flags, error and warning texts, links: what each setter stores and what it announces.
#include "tests/core/ModelFixture.h"

#include <bit>
#include <functional>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PropertyFlags : public ModelTest {
protected:
    CComPtr<IqorProperty> property = Add(1, E_PROP_DT_LINEAR);

    Text WarningText()
    {
        CComBSTR text;
        EXPECT_EQ(property->GetWarningString(&text), S_OK);
        return Text(text.View());
    }
};

/// A setter of one flag, its getter and what it announces.
struct FlagCase {
    const char* name;
    HRESULT (STDMETHODCALLTYPE IqorProperty::*set)(VARIANT_BOOL);
    HRESULT (STDMETHODCALLTYPE IqorProperty::*get)(VARIANT_BOOL*);
    bool initially;
    bool announces;
    bool visibilityChanged;
    const OLECHAR* method;
    const OLECHAR* parameter;
};

const FlagCase kFlags[] = {
    {"Valid", &IqorProperty::SetValid, &IqorProperty::IsValid, true, true, false, OLESTR("IsValid"), OLESTR("pbValid")},
    {"Warning", &IqorProperty::SetWarning, &IqorProperty::IsInWarning, false, true, false, OLESTR("IsInWarning"),
     OLESTR("pbIsInWarning")},
    {"Visible", &IqorProperty::SetVisible, &IqorProperty::IsVisible, true, true, true, OLESTR("IsVisible"),
     OLESTR("pbVisible")},
    {"VisibleForPostProc", &IqorProperty::SetVisibleForPostProc, &IqorProperty::IsVisibleForPostProc, true, true, true,
     OLESTR("IsVisibleForPostProc"), OLESTR("pbVisible")},
    {"ReadOnly", &IqorProperty::SetReadOnly, &IqorProperty::IsReadOnly, false, true, false, OLESTR("IsReadOnly"),
     OLESTR("pbReadOnly")},
    {"AlwaysSave", &IqorProperty::SetAlwaysSave, &IqorProperty::GetAlwaysSave, true, true, false,
     OLESTR("GetAlwaysSave"), OLESTR("pbAlwaysSave")},
    {"NoUnitConvert", &IqorProperty::SetNoUnitConvert, &IqorProperty::GetNoUnitConvert, false, false, false,
     OLESTR("GetNoUnitConvert"), OLESTR("pbNoUnitConvert")},
};

class EachFlag : public PropertyFlags, public testing::WithParamInterface<FlagCase> {
protected:
    HRESULT Set(VARIANT_BOOL value) { return (property.p->*GetParam().set)(value); }
};

} // namespace

TEST_P(EachFlag, IsAnnouncedOnceAndNotWhenItIsSetAgain)
{
    const FlagCase& flag = GetParam();
    const VARIANT_BOOL other = flag.initially ? VARIANT_FALSE : VARIANT_TRUE;
    const auto events = EventsOf([&] {
        EXPECT_EQ(FlagOf(property, flag.get), flag.initially);
        EXPECT_EQ(Set(flag.initially ? VARIANT_TRUE : VARIANT_FALSE), S_OK);
        EXPECT_EQ(Set(other), S_OK);
        EXPECT_EQ(Set(other), S_OK);
        EXPECT_EQ(FlagOf(property, flag.get), !flag.initially);
    });
    if (flag.announces)
        EXPECT_THAT(events, ElementsAre(StateEdit(1, flag.visibilityChanged)));
    else
        EXPECT_THAT(events, IsEmpty());
}

TEST_P(EachFlag, TakesAnyNonZeroValueAsTrue)
{
    InTransaction([&] {
        EXPECT_EQ(Set(1), S_OK);
        EXPECT_TRUE(FlagOf(property, GetParam().get)); // which also sees that -1 comes out
    });
}

TEST_P(EachFlag, ChecksItsPointerBeforeTheTransaction)
{
    const Text method = Text(OLESTR("CprpProperty::")).append(GetParam().method);
    const auto get = std::mem_fn(GetParam().get);
    ExpectNullPointer(get(property.p, nullptr), method, GetParam().parameter);
    VARIANT_BOOL value = VARIANT_FALSE;
    ExpectNoTransaction(get(property.p, &value));
    ExpectNoTransaction(Set(VARIANT_TRUE));
}

INSTANTIATE_TEST_SUITE_P(All, EachFlag, testing::ValuesIn(kFlags),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_F(PropertyFlags, HideBothViewsByOneCallAndShowPostProcessingAlone)
{
    InTransaction([&] {
        EXPECT_EQ(property->SetVisible(VARIANT_FALSE), S_OK);
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsVisibleForPostProc));
        EXPECT_EQ(property->SetVisibleForPostProc(VARIANT_TRUE), S_OK);
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsVisible));
    });
}

TEST_F(PropertyFlags, LeavePostProcessingAloneWhenVisibleIsEqualOrSetWithTheDetails)
{
    InTransaction([&] {
        EXPECT_EQ(property->SetVisibleForPostProc(VARIANT_FALSE), S_OK);
        EXPECT_EQ(property->SetVisible(VARIANT_TRUE), S_OK); // equal already
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsVisibleForPostProc));
        EXPECT_EQ(property->SetVisibleForPostProc(VARIANT_TRUE), S_OK);
        EXPECT_EQ(property->SetDisplayDetails(VARIANT_TRUE, VARIANT_FALSE, VARIANT_FALSE), S_OK);
        EXPECT_TRUE(FlagOf(property, &IqorProperty::IsVisibleForPostProc));
    });
}

TEST_F(PropertyFlags, AnnounceTheDetailsOnceAndTellWhetherVisibilityChanged)
{
    const auto events = EventsOf([&] {
        EXPECT_EQ(property->SetDisplayDetails(VARIANT_TRUE, VARIANT_TRUE, VARIANT_FALSE), S_OK); // as it was
        EXPECT_EQ(property->SetDisplayDetails(VARIANT_FALSE, VARIANT_TRUE, VARIANT_TRUE), S_OK);
        EXPECT_EQ(property->SetDisplayDetails(VARIANT_FALSE, VARIANT_FALSE, VARIANT_TRUE), S_OK);
        VARIANT_BOOL valid = 1;
        VARIANT_BOOL visible = 1;
        VARIANT_BOOL readOnly = 1;
        EXPECT_EQ(property->GetDisplayDetails(&valid, &visible, &readOnly), S_OK);
        EXPECT_EQ(valid, VARIANT_FALSE);
        EXPECT_EQ(visible, VARIANT_FALSE);
        EXPECT_EQ(readOnly, VARIANT_TRUE);
    });
    EXPECT_THAT(events, ElementsAre(StateEdit(1), StateEdit(1, true)));
}

TEST_F(PropertyFlags, KeepTheOldSpellingOfAnErrorThatChangesInCaseAlone)
{
    InTransaction([&] { SetErrorText(property, OLESTR("Out of range")); });
    const auto events = EventsOf([&] {
        EXPECT_EQ(property->SetValid(VARIANT_FALSE), S_OK);
        SetErrorText(property, OLESTR("OUT OF RANGE"));
        EXPECT_EQ(ErrorTextOf(property), OLESTR("Out of range"));
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsValid));
    });
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(PropertyFlags, MakeAPropertyValidWithoutAnEventByAnEmptyErrorWhereThereIsNone)
{
    InTransaction([&] { EXPECT_EQ(property->SetValid(VARIANT_FALSE), S_OK); });
    const auto events = EventsOf([&] {
        EXPECT_EQ(property->SetErrorString(nullptr), S_OK);
        EXPECT_TRUE(FlagOf(property, &IqorProperty::IsValid));
    });
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(PropertyFlags, FollowTheErrorTextEvenWhenItIsUnchanged)
{
    InTransaction([&] { SetErrorText(property, OLESTR("Bad")); });
    const auto events = EventsOf([&] {
        EXPECT_EQ(property->SetValid(VARIANT_TRUE), S_OK);
        SetErrorText(property, OLESTR("Bad"));
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsValid));
    });
    EXPECT_THAT(events, ElementsAre(StateEdit(1))); // that of SetValid alone
}

TEST_F(PropertyFlags, FollowTheWarningText)
{
    const auto events = EventsOf([&] {
        EXPECT_EQ(property->SetWarningString(Bstr(OLESTR("Near the limit"))), S_OK);
        EXPECT_TRUE(FlagOf(property, &IqorProperty::IsInWarning));
        EXPECT_TRUE(FlagOf(property, &IqorProperty::IsValid));
        EXPECT_EQ(WarningText(), OLESTR("Near the limit"));
        EXPECT_EQ(property->SetWarningString(nullptr), S_OK);
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsInWarning));
    });
    EXPECT_THAT(events, ElementsAre(StateEdit(1), StateEdit(1)));
}

TEST_F(PropertyFlags, ShowNoErrorOrWarningOfAPropertyThatIsHiddenEverywhere)
{
    InTransaction([&] {
        SetErrorText(property, OLESTR("Bad"));
        EXPECT_EQ(property->SetVisible(VARIANT_FALSE), S_OK);
        BSTR text = nullptr;
        EXPECT_EQ(property->GetErrorString(&text), S_OK);
        EXPECT_EQ(text, nullptr);
        EXPECT_EQ(property->GetWarningString(&text), S_OK);
        EXPECT_EQ(text, nullptr);
        EXPECT_EQ(property->SetVisibleForPostProc(VARIANT_TRUE), S_OK);
        EXPECT_EQ(ErrorTextOf(property), OLESTR("Bad"));
    });
}

TEST_F(PropertyFlags, CheckPointerThenOutStringThenTransactionOfTheTexts)
{
    ExpectNullPointer(property->GetErrorString(nullptr), OLESTR("CprpProperty::GetErrorString"),
                      OLESTR("pbstrErrorString"));
    CComBSTR text = Bstr(OLESTR("x"));
    ExpectBstrNotNull(property->GetErrorString(&text), OLESTR("CprpProperty::GetErrorString"),
                      OLESTR("pbstrErrorString"));
    ExpectBstrNotNull(property->GetWarningString(&text), OLESTR("CprpProperty::GetWarningString"),
                      OLESTR("pbstrWarningString"));
    BSTR none = nullptr;
    ExpectNoTransaction(property->GetErrorString(&none));
    ExpectNoTransaction(property->SetErrorString(nullptr));
    ExpectNoTransaction(property->SetWarningString(nullptr));
}

TEST_F(PropertyFlags, AnnounceLinkModuleAndEditFlagsOnlyWhenTheyChange)
{
    const auto events = EventsOf([&] {
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(property->SetLinkedProperty(7), S_OK);
            EXPECT_EQ(property->SetHResModule(9), S_OK);
            EXPECT_EQ(property->SetEditFlags(-1), S_OK); // stored as given
        }
        LONG number = 0;
        EXPECT_EQ(property->GetLinkedProperty(&number), S_OK);
        EXPECT_EQ(number, 7);
        EXPECT_EQ(property->GetEditFlags(&number), S_OK);
        EXPECT_EQ(number, -1);
        LONG_PTR module = 0;
        EXPECT_EQ(property->GetHResModule(&module), S_OK);
        EXPECT_EQ(module, 9);
    });
    EXPECT_THAT(events, ElementsAre(StateEdit(1), StateEdit(1), StateEdit(1)));
}

TEST_F(PropertyFlags, RefuseNegativeLinksModulesAndTypes)
{
    ExpectNegative(property->SetDataType(std::bit_cast<EprpPropDataType>(-1))); // ahead of the transaction
    ExpectNoTransaction(property->SetLinkedProperty(-1));
    InTransaction([&] {
        ExpectNegative(property->SetLinkedProperty(-1));
        ExpectNegative(property->SetHResModule(-1));
        EprpPropError error = E_PROP_ERROR_NONE;
        CComPtr<IqorProperty> other;
        ExpectNegative(property->GetProperty(-1, &error, &other));
        EXPECT_EQ(property->GetProperty(0, &error, &other), S_OK);
        EXPECT_EQ(error, E_PROP_ERROR_PROP_ID_NOT_FOUND);
    });
}

TEST_F(PropertyFlags, RefuseAFontAfterTheChecks)
{
    ExpectNullPointer(property->SetFont(nullptr), OLESTR("CprpProperty::SetFont"), OLESTR("pIFont"));
    IFontDisp* const font = reinterpret_cast<IFontDisp*>(property.p); // any pointer: it is never called
    ExpectNoTransaction(property->SetFont(font));
    InTransaction([&] {
        EXPECT_EQ(property->SetFont(font), E_NOTIMPL);
        EXPECT_EQ(LastErrorText(), OLESTR(""));
    });
}
