// What a row reads from its properties, and how several collections are combined: the strictest wins.
#include "tests/list/windows/GridTest.h"

#include "frame/LVErrorInfo.h"

namespace {

constexpr const OLECHAR* kSeveral =
    OLESTR("Error: This property is in error for one or more of the statements in this selection.");

class Refresh : public GridTest {
protected:
    CprpPropItem& ShowIn(std::size_t collections, LONG editFlags = E_PROP_EDIT_VALUE)
    {
        for (std::size_t i = 0; i < collections; ++i)
            grid.AddCollection();
        return ShowOne(E_PROP_DT_DOUBLE, editFlags);
    }
    void SetHelp(TextView text, std::size_t collection = 0)
    {
        const auto help = MakeObject<IprpHelpInfo>(CLSID_prpHelpInfo);
        EXPECT_EQ(help->AddHelpString(0, 1, Bstr(text)), S_OK);
        Transact(grid.collections[collection],
                 [&] { EXPECT_EQ(grid.Collection(collection).AttachHelpInfo(help), S_OK); });
    }
    Text ErrorAfterRefresh()
    {
        grid.Item(1).Refresh();
        return grid.Item(1).m_strError;
    }
};

} // namespace

TEST_F(Refresh, TakesTheNameFromTheFirstCollection)
{
    CprpPropItem& item = ShowIn(2);
    grid.Change(
        1, [](IqorProperty* p) { EXPECT_EQ(p->SetPropertyName(Bstr(OLESTR("First"))), S_OK); }, 0);
    grid.Change(
        1, [](IqorProperty* p) { EXPECT_EQ(p->SetPropertyName(Bstr(OLESTR("Second"))), S_OK); }, 1);
    item.Refresh();
    EXPECT_EQ(item.m_strName, OLESTR("First"));
}

TEST_F(Refresh, ShowsARowThatIsVisibleInEveryCollectionOnly)
{
    ShowIn(2);
    grid.Change(
        1, [](IqorProperty* p) { EXPECT_EQ(p->SetVisible(VARIANT_FALSE), S_OK); }, 1);
    EXPECT_THAT(Rows(), IsEmpty());
    EXPECT_FALSE(grid.Item(1).m_bVisible);
    grid.Change(
        1, [](IqorProperty* p) { EXPECT_EQ(p->SetVisible(VARIANT_TRUE), S_OK); }, 1);
    EXPECT_THAT(Rows(), ElementsAre(1));
}

TEST_F(Refresh, KeepsAForcedVisibility)
{
    CprpPropItem& item = ShowIn(1);
    item.m_bVisibilityForced = true;
    Transact(
        grid.collections[0], [&] { EXPECT_EQ(PropertyOf(grid.collections[0], 1)->SetVisible(VARIANT_FALSE), S_OK); },
        false);
    item.Refresh();
    EXPECT_TRUE(item.m_bVisible);
}

TEST_F(Refresh, TakesARowForReadOnlyThatIsSoInOneCollectionOfThree)
{
    CprpPropItem& item = ShowIn(3);
    SetReadOnly(1, true, 1);
    EXPECT_TRUE(item.m_bReadOnly);
    SetReadOnly(1, false, 1);
    EXPECT_FALSE(item.m_bReadOnly);
}

TEST_F(Refresh, TakesEditingRightsAwayForOneCollection)
{
    CprpPropItem& item = ShowIn(2, E_PROP_EDIT_VALUE | E_PROP_EDIT_SHOW_EXTENDED_INFO);
    EXPECT_TRUE(item.m_bEditable);
    EXPECT_TRUE(item.m_bShowExtendedButton);
    grid.Change(
        1, [](IqorProperty* p) { EXPECT_EQ(p->SetEditFlags(E_PROP_EDIT_VALUE), S_OK); }, 1);
    item.Refresh();
    EXPECT_TRUE(item.m_bEditable);
    EXPECT_FALSE(item.m_bShowExtendedButton);
    grid.Change(
        1, [](IqorProperty* p) { EXPECT_EQ(p->SetEditFlags(E_PROP_EDIT_NONE), S_OK); }, 0);
    item.Refresh();
    EXPECT_FALSE(item.m_bEditable);
}

TEST_F(Refresh, TellsTheErrorOfOneCollection)
{
    CprpPropItem& item = ShowIn(2);
    SetInvalid(1, OLESTR("Too long"), 1);
    EXPECT_TRUE(item.m_bInvalid);
    EXPECT_EQ(item.m_strError, OLESTR("Error: Too long"));
}

TEST_F(Refresh, TellsOfSeveralErrorsWithoutNamingThem)
{
    CprpPropItem& item = ShowIn(2);
    SetInvalid(1, OLESTR("Too long"), 0);
    SetInvalid(1, OLESTR("Too short"), 1);
    EXPECT_EQ(item.m_strError, kSeveral);
}

TEST_F(Refresh, TakesTheSameErrorTwiceForSeveral)
{
    CprpPropItem& item = ShowIn(2);
    SetInvalid(1, OLESTR("Too long"), 0);
    SetInvalid(1, OLESTR("Too long"), 1);
    EXPECT_EQ(item.m_strError, kSeveral);
}

TEST_F(Refresh, DoesNotCountTheErrorOfAHiddenProperty)
{
    CprpPropItem& item = ShowIn(2);
    SetInvalid(1, OLESTR("Too long"), 1);
    grid.Change(
        1, [](IqorProperty* p) { EXPECT_EQ(p->SetVisible(VARIANT_FALSE), S_OK); }, 1);
    EXPECT_FALSE(item.m_bInvalid);
    EXPECT_EQ(item.m_strError, OLESTR(""));
}

TEST_F(Refresh, ForgetsAnErrorThatIsGone)
{
    CprpPropItem& item = ShowIn(1);
    SetInvalid(1, OLESTR("Too long"));
    grid.Change(1, [](IqorProperty* p) { EXPECT_EQ(p->SetValid(VARIANT_TRUE), S_OK); });
    EXPECT_FALSE(item.m_bInvalid);
    EXPECT_EQ(item.m_strError, OLESTR(""));
}

TEST_F(Refresh, TellsHelpInPlaceOfAnError)
{
    ShowIn(1);
    SetHelp(OLESTR("The width of the slot"));
    EXPECT_EQ(ErrorAfterRefresh(), OLESTR("The width of the slot"));
    SetInvalid(1, OLESTR("Too long"));
    EXPECT_EQ(ErrorAfterRefresh(), OLESTR("Error: Too long"));
}

TEST_F(Refresh, TellsTheSameHelpOfSeveralCollectionsOnce)
{
    ShowIn(2);
    SetHelp(OLESTR("The width"), 0);
    SetHelp(OLESTR("The width"), 1);
    EXPECT_EQ(ErrorAfterRefresh(), OLESTR("The width"));
}

TEST_F(Refresh, TakesDifferentHelpTextsForSeveralErrors)
{
    ShowIn(2);
    SetHelp(OLESTR("The width"), 0);
    SetHelp(OLESTR("The height"), 1);
    EXPECT_EQ(ErrorAfterRefresh(), kSeveral);
}

TEST_F(Refresh, TakesAnErrorBehindAHelpTextForSeveralErrors)
{
    ShowIn(2);
    SetHelp(OLESTR("The width"), 0);
    SetInvalid(1, OLESTR("Too long"), 1);
    EXPECT_EQ(ErrorAfterRefresh(), kSeveral);
}

TEST_F(Refresh, TellsNoHelpWhereTheListShowsNone)
{
    ShowIn(1);
    SetHelp(OLESTR("The width"));
    grid.list.m_bShowHelpTooltips = false;
    EXPECT_EQ(ErrorAfterRefresh(), OLESTR(""));
}

TEST_F(Refresh, TellsNoHelpUnderAWarning)
{
    ShowIn(1);
    SetHelp(OLESTR("The width"));
    SetWarning(1, OLESTR("worn"));
    EXPECT_EQ(ErrorAfterRefresh(), OLESTR(""));
    EXPECT_EQ(grid.Item(1).m_strWarning, OLESTR("worn"));
}

TEST_F(Refresh, TakesTheWarningOfTheLastCollection)
{
    CprpPropItem& item = ShowIn(2);
    SetWarning(1, OLESTR("first"), 0);
    EXPECT_FALSE(item.m_bWarning);
    EXPECT_EQ(item.m_strWarning, OLESTR(""));
    SetWarning(1, OLESTR("second"), 1);
    EXPECT_TRUE(item.m_bWarning);
    EXPECT_EQ(item.m_strWarning, OLESTR("second"));
}

TEST_F(Refresh, ReachesTheChildren)
{
    ShowCategories();
    Transact(
        grid.collections[0], [&] { SetString(PropertyOf(grid.collections[0], 12), OLESTR("3")); }, false);
    grid.Item(10).Refresh();
    EXPECT_EQ(grid.Item(12).m_strData, OLESTR("3"));
}

TEST_F(Refresh, TellsNobody)
{
    CprpPropItem& item = ShowIn(2);
    item.Refresh();
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(Refresh, WithoutANodeIsAnInternalError)
{
    CprpPropItem& item = ShowIn(1);
    CprpMultiplePropInfo* const node = std::exchange(item.m_pPropInfo, nullptr);
    try {
        item.Refresh();
        ADD_FAILURE() << "nothing was raised";
    } catch (const LVErrorInfo& error) {
        EXPECT_EQ(error.m_hr, static_cast<HRESULT>(0x80041B60));
        EXPECT_NE(Text(error.m_szMessage).find(OLESTR("prpPropLBItems, line 414")), Text::npos) << error.m_szMessage;
    }
    item.m_pPropInfo = node;
}

TEST_F(Refresh, WithoutCollectionsIsAnInternalError)
{
    CprpPropItem& item = ShowIn(1);
    const auto kept = std::exchange(item.m_pPropInfo->m_listCollections, {});
    try {
        item.Refresh();
        ADD_FAILURE() << "nothing was raised";
    } catch (const LVErrorInfo& error) {
        EXPECT_NE(Text(error.m_szMessage).find(OLESTR("prpPropLBItems, line 416")), Text::npos) << error.m_szMessage;
    }
    item.m_pPropInfo->m_listCollections = kept;
}

TEST_F(Refresh, OfRowsByIdIsNotWhatTheyOffer)
{
    CprpPropItem& item = ShowIn(1);
    try {
        item.Refresh_Internal(1, 2, 3);
        ADD_FAILURE() << "nothing was raised";
    } catch (const LVErrorInfo& error) {
        EXPECT_EQ(Text(error.m_szMessage), OLESTR("Refresh_Internal() not implemented for this list box item."));
    }
}

TEST_F(Refresh, InsideAHostsTransactionIsReportedByTheKeyAndTheListGoesOn)
{
    ShowIn(1);
    const RecordedAlerts alerts;
    ASSERT_EQ(grid.Collection().StartTransaction(-1), S_OK);
    AnswerTo(VK_F5);
    EXPECT_EQ(alerts.Boxes().size(), 1u);
    EXPECT_EQ(grid.Collection().EndTransaction(VARIANT_FALSE), S_OK);
    EXPECT_EQ(AnswerTo(VK_F5), -2);
    EXPECT_EQ(alerts.Boxes().size(), 1u);
}
