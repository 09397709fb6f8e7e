// Editing in the viewer: by the host's order, by keys alone, across several collections, and what goes wrong on the
// way.
#include "tests/viewer/ViewerHost.h"

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class ViewerEdits : public testing::Test {
protected:
    ViewerHost host;

    void ShowNumbers(int n)
    {
        for (LONG id = 1; id <= n; ++id)
            host.Add(id, E_PROP_DT_DOUBLE);
        host.Show();
    }
    void SetTwoCollections()
    {
        host.AddCollection();
        host.AddCollection();
    }
    /// As the host's message loop offers a key.
    HRESULT Offer(UINT key, UINT message = WM_KEYDOWN)
    {
        MSG offered{};
        offered.hwnd = GetFocus();
        offered.message = message;
        offered.wParam = key;
        CComPtr<IOleInPlaceActiveObject> active;
        EXPECT_EQ(host.control.QueryInterface(&active), S_OK);
        return active->TranslateAccelerator(&offered);
    }
};

} // namespace

TEST_F(ViewerEdits, NothingWithoutASelection)
{
    ShowNumbers(2);
    EXPECT_EQ(host.control->DoInPlaceEdit(), S_OK);
    EXPECT_EQ(host.EditWindow(), nullptr);
    EXPECT_THAT(host.Sounds(), IsEmpty());
}

TEST_F(ViewerEdits, TheSelectedRowByOrderOfTheHost)
{
    ShowNumbers(2);
    ASSERT_TRUE(host.Edit(2));
    EXPECT_THAT(host.Sounds(), ElementsAre("SelectionChanged 2", "InPlaceEditStart"));
    host.TypeOver(L"7.5");
    EXPECT_EQ(host.control->EndInPlaceEdit(), S_OK);
    EXPECT_EQ(host.ValueOf(2), OLESTR("7.5"));
    EXPECT_EQ(host.DataOf(2), OLESTR("7.5"));
    EXPECT_THAT(host.Sounds(), ElementsAre("InPlaceEditEnd", "MultiEditStart", "MultiEditEnd"));
}

TEST_F(ViewerEdits, NothingWhenTheHostCancels)
{
    ShowNumbers(1);
    const Text before = host.ValueOf(1);
    ASSERT_TRUE(host.Edit(1));
    host.TypeOver(L"7.5");
    host.Sounds();
    EXPECT_EQ(host.control->CancelInPlaceEdit(), S_OK);
    EXPECT_EQ(host.ValueOf(1), before);
    EXPECT_EQ(GetFocus(), host.ListWindow());
    EXPECT_THAT(host.Sounds(), IsEmpty());
}

TEST_F(ViewerEdits, NothingForATextThatDidNotChange)
{
    ShowNumbers(1);
    ASSERT_TRUE(host.Edit(1));
    host.Sounds();
    EXPECT_EQ(host.control->EndInPlaceEdit(), S_OK);
    EXPECT_THAT(host.Sounds(), ElementsAre("InPlaceEditEnd"));
}

TEST_F(ViewerEdits, EveryRowByKeysAlone)
{
    ShowNumbers(3);
    SetFocus(host.ListWindow());
    for (LONG id = 1; id <= 3; ++id) {
        ASSERT_EQ(host.Selected(), id);
        PressKey(VK_RETURN);
        ASSERT_EQ(GetFocus(), host.EditWindow()) << id;
        TypeCharacters(L"4" + std::to_wstring(id));
        PressKey(VK_RETURN);
        EXPECT_EQ(host.ValueOf(id), L"4" + std::to_wstring(id));
        EXPECT_EQ(GetFocus(), host.ListWindow());
        PressKey(VK_DOWN);
    }
    PressKey(VK_UP);
    PressKey(VK_RETURN);
    TypeCharacters(L"9");
    PressKey(VK_ESCAPE);
    EXPECT_EQ(host.ValueOf(2), L"42");
    EXPECT_EQ(GetFocus(), host.ListWindow());
}

TEST_F(ViewerEdits, TheSelectedRowByTabWhichDoesNotMove)
{
    ShowNumbers(2);
    SetFocus(host.ListWindow());
    PressKey(VK_TAB);
    EXPECT_EQ(host.Selected(), 1);
    EXPECT_EQ(GetFocus(), host.EditWindow());
}

TEST_F(ViewerEdits, CategoriesAndTheirChildrenByKeysAlone)
{
    host.Add(1, E_PROP_DT_CATEGORY);
    host.Add(2, E_PROP_DT_LONG, 1);
    host.Show();
    SetFocus(host.ListWindow());
    PressKey(VK_LEFT);
    EXPECT_THAT(host.Rows(), ElementsAre(1));
    EXPECT_THAT(host.Sounds(), ElementsAre("PropertyExpandCollapse 1 true"));
    PressKey(VK_RIGHT);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2));
    PressKey(VK_DOWN);
    PressKey(VK_RIGHT);
    EXPECT_EQ(GetFocus(), host.EditWindow()) << "a leaf is edited";
}

TEST_F(ViewerEdits, TellNoTextBoxForADropList)
{
    host.Add(1, E_PROP_DT_ENUM);
    host.Change(1, [](IqorProperty* property) {
        SprpEnumItem item{3, 0, VARIANT_TRUE};
        EXPECT_EQ(property->AddEnumItem(0, &item), S_OK);
        EXPECT_EQ(property->AddEnumItemString(0, Bstr(OLESTR("Fast"))), S_OK);
    });
    host.Show();
    host.control->SetSelectedProperty(1);
    EXPECT_EQ(host.control->DoInPlaceEdit(), S_OK);
    EXPECT_EQ(host.EditWindow(), nullptr);
}

TEST_F(ViewerEdits, ADropListByKeysAlone)
{
    host.Add(1, E_PROP_DT_ENUM);
    host.Add(2, E_PROP_DT_DOUBLE);
    host.Change(1, [](IqorProperty* property) {
        LONG index = 0;
        for (const OLECHAR* text : {OLESTR("Slow"), OLESTR("Fast")}) {
            SprpEnumItem item{index + 5, 0, VARIANT_TRUE};
            EXPECT_EQ(property->AddEnumItem(index, &item), S_OK);
            EXPECT_EQ(property->AddEnumItemString(index++, Bstr(text)), S_OK);
        }
        SetLong(property, 5);
    });
    host.Show();
    EXPECT_EQ(host.DataOf(1), OLESTR("Slow"));
    SetFocus(host.ListWindow());
    PressKey(VK_RETURN);
    ASSERT_EQ(GetDlgCtrlID(GetFocus()), 505) << "the drop list";
    PressKey(VK_DOWN);
    SetFocus(host.ListWindow());
    Pump();
    EXPECT_EQ(host.DataOf(1), OLESTR("Fast"));
    Heard heard = host.Sounds();
    EXPECT_THAT(heard, Contains("MultiEditStart"));
    EXPECT_THAT(heard, testing::Not(Contains("InPlaceEditStart"))) << "text boxes alone tell of themselves";
}

TEST_F(ViewerEdits, NothingThatIsReadOnlyOrNotEditable)
{
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Add(2, E_PROP_DT_DOUBLE, E_PROP_ID_TOP_LEVEL, E_PROP_EDIT_NONE);
    host.Change(1, [](IqorProperty* property) { property->SetReadOnly(VARIANT_TRUE); });
    host.Show();
    EXPECT_FALSE(host.Edit(1));
    EXPECT_FALSE(host.Edit(2));
}

TEST_F(ViewerEdits, NothingWhileTheHostForbidsItAndCommitsWhatWasOpen)
{
    ShowNumbers(1);
    ASSERT_TRUE(host.Edit(1));
    host.TypeOver(L"3");
    EXPECT_EQ(host.control->put_AllowEditing(VARIANT_FALSE), S_OK);
    EXPECT_EQ(host.ValueOf(1), OLESTR("3"));
    EXPECT_FALSE(host.Edit(1));
    EXPECT_EQ(host.control->put_AllowEditing(VARIANT_TRUE), S_OK);
    EXPECT_TRUE(host.Edit(1));
}

TEST_F(ViewerEdits, AllCollectionsOfARow)
{
    SetTwoCollections();
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Change(
        1, [](IqorProperty* property) { SetDouble(property, 3); }, 1);
    host.Show();
    ASSERT_TRUE(host.Edit(1));
    EXPECT_EQ(GetWindowTextLengthW(host.EditWindow()), 0) << "the values differ";
    host.TypeOver(L"8");
    ConnectedSink first(host.collections[0]);
    ConnectedSink second(host.collections[1]);
    PressKey(VK_RETURN);
    EXPECT_EQ(host.ValueOf(1, 0), OLESTR("8"));
    EXPECT_EQ(host.ValueOf(1, 1), OLESTR("8"));
    EXPECT_EQ(host.DataOf(1), OLESTR("8"));
    EXPECT_EQ(first->streams.size(), 1U);
    EXPECT_EQ(second->streams.size(), 1U);
}

TEST_F(ViewerEdits, AnUntouchedMixedValueNot)
{
    SetTwoCollections();
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Change(
        1, [](IqorProperty* property) { SetDouble(property, 3); }, 1);
    host.Show();
    ASSERT_TRUE(host.Edit(1));
    PressKey(VK_RETURN);
    EXPECT_EQ(host.ValueOf(1, 1), OLESTR("3"));
    EXPECT_NE(host.ValueOf(1, 0), OLESTR("3"));
}

TEST_F(ViewerEdits, EndWhenTheListIsCleared)
{
    ShowNumbers(1);
    ASSERT_TRUE(host.Edit(1));
    host.TypeOver(L"6");
    host.Sounds();
    EXPECT_EQ(host.control->Clear(), S_OK);
    EXPECT_EQ(host.ValueOf(1), OLESTR("6"));
    EXPECT_THAT(host.Sounds(), ElementsAre("InPlaceEditEnd", "MultiEditStart", "MultiEditEnd"));
}

TEST_F(ViewerEdits, EndWithACommitWhenTheWindowGoes)
{
    ShowNumbers(1);
    ASSERT_TRUE(host.Edit(1));
    host.TypeOver(L"6");
    CComPtr<IOleObject> object;
    ASSERT_EQ(host.control.QueryInterface(&object), S_OK);
    EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(host.ValueOf(1), OLESTR("6"));
}

TEST_F(ViewerEdits, SurviveTheRemovalOfTheirProperty)
{
    ShowNumbers(3);
    ASSERT_TRUE(host.Edit(2));
    host.TypeOver(L"6");
    host.Sounds();
    host.Remove(2);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 3));
    EXPECT_EQ(GetFocus(), host.ListWindow());
    EXPECT_THAT(host.Sounds(), IsEmpty()) << "there is nothing left to commit to";
    EXPECT_TRUE(host.Edit(3));
}

TEST_F(ViewerEdits, SurviveTheRemovalOfTheirPropertyInsideTheCommit)
{
    ShowNumbers(3);
    host.On("MultiEditStart", [&] { host.Remove(2); });
    ASSERT_TRUE(host.Edit(2));
    host.TypeOver(L"6");
    PressKey(VK_RETURN);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 3));
    EXPECT_TRUE(host.Edit(1));
}

TEST_F(ViewerEdits, EndWhenTheirRowBecomesInvisible)
{
    ShowNumbers(3);
    ASSERT_TRUE(host.Edit(2));
    host.TypeOver(L"6");
    host.SetVisible(2, false);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 3));
    EXPECT_EQ(host.ValueOf(2), OLESTR("6"));
    EXPECT_EQ(GetFocus(), host.ListWindow());
}

TEST_F(ViewerEdits, ShowAFailureOnceAndGoOn)
{
    const RecordedAlerts alerts;
    ShowNumbers(2);
    ASSERT_TRUE(host.Edit(1));
    host.TypeOver(L"6");
    ASSERT_EQ(host.collections[0]->StartTransaction(-1), S_OK) << "of the host, which forgets it";
    PressKey(VK_RETURN);
    EXPECT_THAT(alerts.Boxes(), SizeIs(1));
    EXPECT_THAT(alerts.Captions(), ElementsAre(OLESTR("Error")));
    EXPECT_THAT(host.sink->heard, Contains("MultiEditEnd"));
    EXPECT_EQ(host.collections[0]->EndTransaction(VARIANT_FALSE), S_OK) << "still the host's";
    EXPECT_TRUE(host.Edit(2));
    host.TypeOver(L"5");
    PressKey(VK_RETURN);
    EXPECT_EQ(host.ValueOf(2), OLESTR("5"));
    EXPECT_THAT(alerts.Boxes(), SizeIs(1));
}

TEST_F(ViewerEdits, ClampAndRefuseWhatIsTyped)
{
    const RecordedAlerts alerts;
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Add(2, E_PROP_DT_STRING_ANSI);
    host.Show();
    EXPECT_EQ(host.collections[0]->SetMaxInputValue(100), S_OK);
    host.control->Refresh();
    ASSERT_TRUE(host.Edit(2));
    host.TypeOver(L"\x4E00y");
    EXPECT_THAT(alerts.Beeps(), SizeIs(1));
    PressKey(VK_RETURN);
    EXPECT_EQ(host.ValueOf(2), OLESTR("y"));
    ASSERT_TRUE(host.Edit(1));
    host.TypeOver(L"1000000x");
    PressKey(VK_RETURN);
    EXPECT_EQ(host.ValueOf(1), OLESTR("100"));
    ASSERT_TRUE(host.Edit(1));
    SendMessageW(host.EditWindow(), EM_SETSEL, 0, -1);
    SendMessageW(host.EditWindow(), WM_CLEAR, 0, 0);
    PressKey(VK_RETURN);
    EXPECT_EQ(host.ValueOf(1), OLESTR("100")) << "an empty text stands for the limit";
}

TEST_F(ViewerEdits, KeepTheKeysThatTheHostWouldTake)
{
    ShowNumbers(3);
    SetFocus(host.ListWindow());
    EXPECT_EQ(Offer(VK_DOWN), S_OK);
    EXPECT_EQ(host.Selected(), 2);
    for (const UINT key :
         std::initializer_list<UINT>{VK_PRIOR, VK_NEXT, VK_END, VK_HOME, VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN, VK_F5})
        EXPECT_EQ(Offer(key), S_OK) << key;
    for (const UINT key :
         std::initializer_list<UINT>{VK_RETURN, VK_TAB, VK_ESCAPE, VK_DELETE, VK_F4, VK_SPACE, VK_SELECT})
        EXPECT_EQ(Offer(key), S_FALSE) << key;
    EXPECT_EQ(Offer(VK_DOWN, WM_KEYUP), S_FALSE);
    EXPECT_EQ(Offer(VK_DOWN, WM_CHAR), S_FALSE);
}

TEST_F(ViewerEdits, ReadEverythingAnewOnF5)
{
    ShowNumbers(1);
    Transact(
        host.collections[0], [&] { SetDouble(PropertyOf(host.collections[0], 1), 8); }, false);
    EXPECT_NE(host.DataOf(1), OLESTR("8"));
    SetFocus(host.ListWindow());
    EXPECT_EQ(Offer(VK_F5), S_OK);
    EXPECT_EQ(host.DataOf(1), OLESTR("8"));
}

TEST_F(ViewerEdits, TellOfTheButtonAfterTheCommitOfTheTextBox)
{
    host.Add(1, E_PROP_DT_DOUBLE, E_PROP_ID_TOP_LEVEL, E_PROP_EDIT_VALUE | E_PROP_EDIT_SHOW_EXTENDED_INFO);
    host.Show();
    ASSERT_TRUE(host.Edit(1));
    host.TypeOver(L"2");
    host.Sounds();
    const HWND button = GetDlgItem(host.ListWindow(), 506);
    ASSERT_NE(button, nullptr);
    ClickAt(button, {3, 3});
    EXPECT_THAT(host.Sounds(),
                ElementsAre("InPlaceEditEnd", "MultiEditStart", "MultiEditEnd", "ExtendedInfoButtonClicked 1"));
    EXPECT_EQ(host.ValueOf(1), OLESTR("2"));
}
