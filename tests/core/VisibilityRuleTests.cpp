// Visibility rules: the rule object itself, and rules on properties, set and at the end of a transaction.
#include "tests/core/HostRule.h"
#include "tests/core/ModelFixture.h"

#include <initializer_list>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

CComPtr<IprpVisibilityInfo> MakeRule()
{
    return MakeObject<IprpVisibilityInfo>(CLSID_prpVisibilityInfo);
}

void SetControls(IprpVisibilityInfo* rule, std::vector<LONG> ids)
{
    EXPECT_EQ(rule->AddControlProperties(ids.data(), static_cast<LONG>(ids.size())), S_OK);
}

void AddRow(IprpVisibilityInfo* rule, std::vector<LONG> values)
{
    EXPECT_EQ(rule->AddCtrlPropValues(values.data(), static_cast<LONG>(values.size())), S_OK);
}

class VisibilityRule : public ModelTest {
protected:
    CComPtr<IprpVisibilityInfo> rule = MakeRule();
    CComPtr<IqorProperty> first = Add(10, E_PROP_DT_LONG);
    CComPtr<IqorProperty> second = Add(11, E_PROP_DT_LONG);

    void SetValues(LONG one, LONG two)
    {
        InTransaction([&] {
            SetLong(first, one);
            SetLong(second, two);
        });
    }
    bool Answer()
    {
        VARIANT_BOOL visible = 7;
        InTransaction([&] { EXPECT_EQ(rule->IsVisible(collection, &visible), S_OK); });
        EXPECT_TRUE(visible == VARIANT_TRUE || visible == VARIANT_FALSE);
        return visible == VARIANT_TRUE;
    }
};

} // namespace

TEST_F(VisibilityRule, ReportsNullPointers)
{
    VARIANT_BOOL visible = 7;
    ExpectNullPointer(rule->IsVisible(nullptr, nullptr), OLESTR("CprpVisibilityInfo::IsVisible"),
                      OLESTR("pIPropCollection"));
    ExpectNullPointer(rule->IsVisible(collection, nullptr), OLESTR("CprpVisibilityInfo::IsVisible"),
                      OLESTR("pbIsVisible"));
    ExpectNullPointer(rule->AddControlProperties(nullptr, 1), OLESTR("CprpVisibilityInfo::AddControlProperties"),
                      OLESTR("pnPropIDs"));
    SetControls(rule, {10});
    ExpectNullPointer(rule->AddCtrlPropValues(nullptr, 1), OLESTR("CprpVisibilityInfo::AddCtrlPropValues"),
                      OLESTR("pnPropValues"));
    EXPECT_EQ(rule->AddCtrlPropValues(nullptr, 2), S_OK); // a count that does not fit is not looked at any further
    EXPECT_EQ(visible, 7);
}

TEST_F(VisibilityRule, WithoutControlsIsAlwaysVisibleEvenOutsideATransaction)
{
    VARIANT_BOOL visible = 7;
    EXPECT_EQ(rule->IsVisible(collection, &visible), S_OK);
    EXPECT_EQ(visible, VARIANT_TRUE);
}

TEST_F(VisibilityRule, WithControlsButWithoutRowsIsNotVisible)
{
    SetControls(rule, {10});
    EXPECT_FALSE(Answer());
}

TEST_F(VisibilityRule, IsVisibleWhenOneRowMatchesInAllItsPlaces)
{
    SetControls(rule, {10, 11});
    AddRow(rule, {1, -1});
    AddRow(rule, {2, 3});
    SetValues(1, 7);
    EXPECT_TRUE(Answer());
    SetValues(2, 7);
    EXPECT_FALSE(Answer());
    SetValues(2, 3);
    EXPECT_TRUE(Answer());
}

TEST_F(VisibilityRule, CannotSingleOutTheValueMinusOne)
{
    SetControls(rule, {10});
    AddRow(rule, {-1});
    SetValues(-1, 0);
    EXPECT_TRUE(Answer());
    SetValues(5, 0);
    EXPECT_TRUE(Answer());
}

TEST_F(VisibilityRule, IgnoresRowsOfAnotherLengthAndRowsAheadOfItsControls)
{
    AddRow(rule, {1});
    SetControls(rule, {10});
    AddRow(rule, {1, 1});
    AddRow(rule, {});
    LONG value = 1;
    EXPECT_EQ(rule->AddCtrlPropValues(&value, -1), S_OK);
    SetValues(1, 1);
    EXPECT_FALSE(Answer());
}

TEST_F(VisibilityRule, KeepsItsRowsWhenItsControlsAreReplaced)
{
    SetControls(rule, {10});
    AddRow(rule, {1});
    SetControls(rule, {11});
    SetValues(0, 1);
    EXPECT_TRUE(Answer());
}

TEST_F(VisibilityRule, DoesNotMatchARowThatIsShorterThanItsControls)
{
    SetControls(rule, {10});
    AddRow(rule, {1});
    SetControls(rule, {10, 11});
    SetValues(1, 1);
    EXPECT_FALSE(Answer());
}

TEST_F(VisibilityRule, IgnoresTheSurplusOfARowThatIsLongerThanItsControls)
{
    SetControls(rule, {10, 11});
    AddRow(rule, {1, 99});
    SetControls(rule, {10});
    SetValues(1, 1);
    EXPECT_TRUE(Answer());
}

TEST_F(VisibilityRule, TakesANegativeCountOfControlsForNone)
{
    SetControls(rule, {10});
    LONG id = 10;
    EXPECT_EQ(rule->AddControlProperties(&id, -1), S_OK);
    EXPECT_TRUE(Answer());
    SetControls(rule, {10});
    EXPECT_EQ(rule->AddControlProperties(nullptr, 0), S_OK);
    EXPECT_TRUE(Answer());
}

TEST_F(VisibilityRule, CountsAControlWithoutAnIntegerValueAsZero)
{
    const auto real = Add(12, E_PROP_DT_LINEAR);
    InTransaction([&] {
        SetDouble(real, 5);
        SetLong(first, 5);
    });
    SetControls(rule, {10, 12});
    AddRow(rule, {5, 0});
    EXPECT_TRUE(Answer());
}

TEST_F(VisibilityRule, ReportsAControlThatTheCollectionDoesNotHave)
{
    SetControls(rule, {10, 99});
    AddRow(rule, {-1, -1});
    InTransaction([&] {
        VARIANT_BOOL visible = 7;
        ExpectRefusal(rule->IsVisible(collection, &visible), OLESTR("PropertyID 99 was not found in the collection."));
        EXPECT_EQ(visible, VARIANT_FALSE);
    });
}

TEST_F(VisibilityRule, FailsOutsideATransactionLikeTheReadingOfItsControls)
{
    SetControls(rule, {10});
    VARIANT_BOOL visible = 7;
    ExpectNoTransaction(rule->IsVisible(collection, &visible));
    EXPECT_EQ(visible, VARIANT_FALSE);
}

namespace {

class RuleOnProperty : public VisibilityRule {
protected:
    CComPtr<IqorProperty> property = Add(20, E_PROP_DT_LINEAR);

    bool Visible()
    {
        bool visible = false;
        InTransaction([&] { visible = FlagOf(property, &IqorProperty::IsVisible); });
        return visible;
    }
    bool VisibleForPostProc()
    {
        bool visible = false;
        InTransaction([&] { visible = FlagOf(property, &IqorProperty::IsVisibleForPostProc); });
        return visible;
    }
    CComPtr<IprpVisibilityInfo> Rule()
    {
        CComPtr<IprpVisibilityInfo> found;
        EXPECT_EQ(property->GetVisibilityInfo(&found), S_OK);
        return found;
    }
    void Attach(IprpVisibilityInfo* attached)
    {
        InTransaction([&] { EXPECT_EQ(property->SetVisibilityInfo(attached), S_OK); });
    }
    void AttachForPostProc(IprpVisibilityInfo* attached)
    {
        InTransaction([&] { EXPECT_EQ(property->SetPostProcVisibilityInfo(attached), S_OK); });
    }
    /// Visible while property 10 is 1.
    void MakeRuleOnFirst()
    {
        SetControls(rule, {10});
        AddRow(rule, {1});
    }
};

} // namespace

TEST_F(RuleOnProperty, ReportsNullPointers)
{
    ExpectNullPointer(property->SetVisibilityInfo(nullptr), OLESTR("CprpProperty::SetVisibilityInfo"),
                      OLESTR("pIVisibilityInfo"));
    ExpectNullPointer(property->SetPostProcVisibilityInfo(nullptr), OLESTR("CprpProperty::SetPostProcVisibilityInfo"),
                      OLESTR("pIVisibilityInfo"));
    ExpectNullPointer(property->GetVisibilityInfo(nullptr), OLESTR("CprpProperty::GetVisibilityInfo"),
                      OLESTR("ppIVisibilityInfo"));
}

TEST_F(RuleOnProperty, IsAppliedWhenItIsSet)
{
    MakeRuleOnFirst();
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(property->SetVisibilityInfo(rule), S_OK); }),
                ElementsAre(StateEdit(20, true)));
    EXPECT_FALSE(Visible());
    EXPECT_FALSE(VisibleForPostProc());
}

TEST_F(RuleOnProperty, ForPostProcessingHidesThatViewAlone)
{
    MakeRuleOnFirst();
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(property->SetPostProcVisibilityInfo(rule), S_OK); }),
                ElementsAre(StateEdit(20, true)));
    EXPECT_TRUE(Visible());
    EXPECT_FALSE(VisibleForPostProc());
    EXPECT_EQ(Rule().p, nullptr);
}

TEST_F(RuleOnProperty, IsStoredOutsideATransactionBeforeTheMethodFails)
{
    ExpectNoTransaction(property->SetVisibilityInfo(rule)); // a rule without controls
    EXPECT_EQ(Rule().p, rule.p);
    ExpectNoTransaction(property->SetPostProcVisibilityInfo(rule));
    EXPECT_TRUE(Visible());
}

TEST_F(RuleOnProperty, WithAMissingControlHidesThePropertyWithoutAnError)
{
    SetControls(rule, {99});
    AddRow(rule, {-1});
    Attach(rule);
    EXPECT_FALSE(Visible());
}

TEST_F(RuleOnProperty, ThatFailsCountsAsNotVisibleWhateverItWrote)
{
    const auto host = MakeHostRule();
    host->result = E_FAIL;
    Attach(host);
    EXPECT_FALSE(Visible());
    EXPECT_EQ(property->ClearVisibilityInfo(), S_OK);
}

TEST_F(RuleOnProperty, IsHeldAndHandedOutByReference)
{
    const auto host = MakeHostRule();
    const auto other = MakeHostRule();
    Attach(host);
    EXPECT_EQ(host->references, 2);
    {
        CComPtr<IprpVisibilityInfo> found = Rule();
        EXPECT_EQ(found.p, host.p);
        EXPECT_EQ(host->references, 3);
        // What the caller's pointer holds is released.
        EXPECT_EQ(property->GetVisibilityInfo(&found.p), S_OK);
        EXPECT_EQ(host->references, 3);
    }
    Attach(other);
    EXPECT_EQ(host->references, 1);
    EXPECT_EQ(other->references, 2);
    Attach(other);
    EXPECT_EQ(other->references, 2);
    EXPECT_EQ(property->ClearVisibilityInfo(), S_OK);
    EXPECT_EQ(other->references, 1);
    CComPtr<IprpVisibilityInfo> held(host.p);
    EXPECT_EQ(property->GetVisibilityInfo(&held.p), S_OK);
    EXPECT_EQ(held.p, nullptr);
    EXPECT_EQ(host->references, 1);
}

TEST_F(RuleOnProperty, IsReleasedWithItsProperty)
{
    const auto host = MakeHostRule();
    Attach(host);
    AttachForPostProc(host);
    EXPECT_EQ(host->references, 3);
    property.Release();
    InTransaction([&] {
        EprpPropError error = E_PROP_ERROR_NONE;
        EXPECT_EQ(collection->RemoveProperty(20, &error), S_OK);
    });
    EXPECT_EQ(host->references, 1);
}

TEST_F(RuleOnProperty, ClearedLeavesTheVisibilityAndTheRuleForPostProcessing)
{
    const auto host = MakeHostRule();
    host->visible = VARIANT_FALSE;
    const auto postProc = MakeHostRule();
    Attach(host);
    AttachForPostProc(postProc);
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(property->ClearVisibilityInfo(), S_OK); }), IsEmpty());
    EXPECT_FALSE(Visible());
    EXPECT_EQ(postProc->references, 2);
}

TEST_F(RuleOnProperty, FollowsItsControlsAtTheEndOfTheTransactionThatChangedThem)
{
    MakeRuleOnFirst();
    Attach(rule);
    EXPECT_FALSE(Visible());
    EXPECT_THAT(EventsOf([&] {
                    SetLong(first, 1);
                    EXPECT_FALSE(FlagOf(property, &IqorProperty::IsVisible)); // not yet
                }),
                ElementsAre(ValueEdit(10, OLESTR("0")), StateEdit(20, true)));
    EXPECT_TRUE(Visible());
}

TEST_F(RuleOnProperty, IsNotEvaluatedByATransactionThatQueuedNothing)
{
    const auto host = MakeHostRule();
    Attach(host);
    const LONG calls = host->calls;
    InTransaction([&] { EXPECT_TRUE(FlagOf(property, &IqorProperty::IsVisible)); });
    EXPECT_EQ(host->calls, calls);
    InTransaction([&] { SetLong(first, 1); });
    EXPECT_EQ(host->calls, calls + 1);
    EXPECT_EQ(property->ClearVisibilityInfo(), S_OK);
    InTransaction([&] { SetLong(first, 2); });
    EXPECT_EQ(host->calls, calls + 1);
}

TEST_F(RuleOnProperty, TakesTheFlagOfPostProcessingAlongUnlessThatHasARuleOfItsOwn)
{
    const auto host = MakeHostRule();
    const auto postProc = MakeHostRule();
    Attach(host);
    host->visible = VARIANT_FALSE;
    InTransaction([&] { SetLong(first, 1); });
    EXPECT_FALSE(Visible());
    EXPECT_FALSE(VisibleForPostProc());
    AttachForPostProc(postProc);
    EXPECT_FALSE(Visible());
    EXPECT_TRUE(VisibleForPostProc());
    host->visible = VARIANT_TRUE;
    postProc->visible = VARIANT_FALSE;
    InTransaction([&] { SetLong(first, 2); });
    EXPECT_TRUE(Visible());
    EXPECT_FALSE(VisibleForPostProc());
}

TEST_F(RuleOnProperty, MayRemoveWhatItDecidesAbout)
{
    struct RemovingRule : HostRule {
        STDMETHODIMP IsVisible(IqorPropertyCollection* collection, VARIANT_BOOL* out) override
        {
            EprpPropError error = E_PROP_ERROR_NONE;
            if (armed) {
                EXPECT_EQ(collection->RemoveProperty(20, &error), S_OK);
            }
            *out = VARIANT_TRUE;
            return S_OK;
        }
        bool armed = false;
    };
    const auto host = MakeHostRule<RemovingRule>();
    Attach(host);
    property.Release();
    host->armed = true;
    InTransaction([&] { SetLong(first, 1); });
    EXPECT_EQ(host->references, 1);
    InTransaction([&] {
        VARIANT_BOOL exists = 7;
        EXPECT_EQ(collection->PropertyExists(20, &exists), S_OK);
        EXPECT_EQ(exists, VARIANT_FALSE);
    });
}

TEST_F(RuleOnProperty, IsSharedWithACloneAndEvaluatedThere)
{
    MakeRuleOnFirst();
    Attach(rule);
    CComPtr<IqorPropertyCollection> clone;
    InTransaction([&] { ASSERT_EQ(collection->Clone(2, &clone), S_OK); });
    Transact(clone, [&] {
        CComPtr<IprpVisibilityInfo> found;
        EXPECT_EQ(PropertyOf(clone, 20)->GetVisibilityInfo(&found), S_OK);
        EXPECT_EQ(found.p, rule.p);
        SetLong(PropertyOf(clone, 10), 1);
    });
    Transact(clone, [&] { EXPECT_TRUE(FlagOf(PropertyOf(clone, 20), &IqorProperty::IsVisible)); });
    EXPECT_FALSE(Visible());
}
