// Commits to one and several collections, and hosts that change everything while they run.
#include "tests/list/windows/GridTest.h"

namespace {

class Commit : public GridTest {
protected:
    void ShowIn(std::size_t collections)
    {
        for (std::size_t i = 0; i < collections; ++i)
            grid.AddCollection();
        ShowNumbers(2);
        OpenEditor(1);
        TypeOver(L"2.5");
    }
    std::vector<Text> Values()
    {
        std::vector<Text> values;
        for (std::size_t i = 0; i < grid.collections.size(); ++i)
            values.push_back(grid.ValueOf(1, i));
        return values;
    }
};

/// An event in which a host does something.
class HostIn : public Commit, public testing::WithParamInterface<const char*> {
protected:
    void React(std::function<void()> reaction)
    {
        grid.reactions[GetParam()] = [this, reaction = std::move(reaction)] {
            grid.reactions.clear(); // once
            reaction();
        };
    }
};

} // namespace

TEST_F(Commit, WritesToEveryCollectionBetweenOnePairOfEvents)
{
    ShowIn(3);
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(),
                ElementsAre("InPlaceEditEnd", "MultiEditStart", "Stream", "Stream", "Stream", "MultiEditEnd"));
    EXPECT_THAT(Values(), testing::Each(Text(OLESTR("2.5"))));
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR("2.5"));
}

TEST_F(Commit, IsHeardOfByTheCollectionsThatItChangesOnly)
{
    grid.AddCollection();
    grid.AddCollection();
    ShowNumbers(1);
    SetValue(1, OLESTR("2.5"), 1);
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR(""));
    OpenEditor(1);
    TypeOver(L"2.5");
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditEnd", "MultiEditStart", "Stream", "MultiEditEnd"));
    EXPECT_THAT(Values(), testing::Each(Text(OLESTR("2.5"))));
}

TEST_F(Commit, ShowsTheNewValueBeforeItWritesIt)
{
    ShowIn(1);
    Text seen;
    grid.reactions["MultiEditStart"] = [&] { seen = grid.Item(1).m_strData; };
    PressKey(VK_RETURN);
    EXPECT_EQ(seen, OLESTR("2.5"));
}

TEST_F(Commit, ShowsAWaitCursorWhileItWrites)
{
    ShowIn(1);
    HCURSOR during = nullptr;
    grid.reactions["Stream"] = [&] { during = GetCursor(); };
    PressKey(VK_RETURN);
    EXPECT_EQ(during, LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_EQ(GetCursor(), grid.list.m_hClassCursor);
}

TEST_F(Commit, LetsTheHostStartATransactionOfItsOwn)
{
    ShowIn(1);
    grid.reactions["Stream"] = [this] {
        grid.reactions.clear();
        SetValue(2, OLESTR("9"));
    };
    PressKey(VK_RETURN);
    EXPECT_EQ(grid.ValueOf(1), OLESTR("2.5"));
    EXPECT_EQ(grid.Item(2).m_strData, OLESTR("9"));
}

TEST_F(Commit, IntoAHostsOpenTransactionIsReportedOnceAndLeavesItOpen)
{
    ShowIn(1);
    const RecordedAlerts alerts;
    ASSERT_EQ(grid.Collection().StartTransaction(-1), S_OK);
    PressKey(VK_RETURN);
    EXPECT_EQ(alerts.Boxes().size(), 1u);
    EXPECT_EQ(alerts.Captions(), std::vector<Text>{OLESTR("Error")});
    EXPECT_EQ(alerts.Flags(), 0x40030u);
    EXPECT_EQ(grid.Collection().EndTransaction(VARIANT_TRUE), S_OK);
    EXPECT_EQ(grid.ValueOf(1), OLESTR("0"));
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditEnd", "MultiEditStart", "MultiEditEnd"));
}

TEST_F(Commit, GoesOnAfterAReportedFailure)
{
    ShowIn(1);
    {
        const RecordedAlerts alerts;
        ASSERT_EQ(grid.Collection().StartTransaction(-1), S_OK);
        PressKey(VK_RETURN);
        ASSERT_EQ(grid.Collection().EndTransaction(VARIANT_TRUE), S_OK);
    }
    grid.Item(1).Refresh();
    OpenEditor(2);
    TypeOver(L"4");
    PressKey(VK_RETURN);
    EXPECT_EQ(grid.ValueOf(2), OLESTR("4"));
}

TEST_F(Commit, LeavesAPropertyThatIsGoneFromACollectionOut)
{
    ShowIn(2);
    Transact(
        grid.collections[1],
        [&] {
            EprpPropError error = E_PROP_ERROR_NONE;
            EXPECT_EQ(grid.Collection(1).RemoveProperty(1, &error), S_OK);
        },
        false);
    const RecordedAlerts alerts;
    PressKey(VK_RETURN);
    EXPECT_THAT(alerts.Boxes(), IsEmpty());
    EXPECT_EQ(grid.ValueOf(1, 0), OLESTR("2.5"));
}

TEST_P(HostIn, MayHideTheRow)
{
    ShowIn(2);
    React([this] { SetVisible(1, false); });
    PressKey(VK_RETURN);
    EXPECT_THAT(Rows(), ElementsAre(2));
    EXPECT_FALSE(TextBox(1).Exists());
}

TEST_P(HostIn, MayEndTheEdit)
{
    ShowIn(2);
    React([this] { grid.list.EndEdit(); });
    PressKey(VK_RETURN);
    EXPECT_THAT(Rows(), ElementsAre(1, 2));
    grid.Look();
    EXPECT_TRUE(TextBox(1).Exists());
}

TEST_P(HostIn, MayRemoveTheProperty)
{
    ShowIn(1);
    React([this] {
        Transact(grid.collections[0], [&] {
            EprpPropError error = E_PROP_ERROR_NONE;
            EXPECT_EQ(grid.Collection().RemoveProperty(1, &error), S_OK);
        });
    });
    PressKey(VK_RETURN);
    EXPECT_THAT(Rows(), ElementsAre(2));
}

TEST_P(HostIn, MayDestroyTheWindow)
{
    ShowIn(2);
    React([this] { grid.list.Destroy(); });
    PressKey(VK_RETURN);
    EXPECT_FALSE(grid.list.Exists());
}

TEST_P(HostIn, MayMoveTheFocusAway)
{
    ShowIn(1);
    React([this] { SetFocus(grid.window); });
    PressKey(VK_RETURN);
    EXPECT_EQ(grid.ValueOf(1), OLESTR("2.5"));
    EXPECT_EQ(GetFocus(), grid.window);
}

INSTANTIATE_TEST_SUITE_P(Each, HostIn, testing::Values("InPlaceEditEnd", "MultiEditStart", "Stream", "MultiEditEnd"),
                         [](const auto& each) { return std::string(each.param); });
