// What the tests of the list's window share: rows to show, and plain words for what is displayed and done.
#pragma once

#include "tests/list/windows/TestGrid.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using testing::Not;

class GridTest : public testing::Test {
protected:
    TestGrid grid;

    /// Numbers 1 to n.
    void ShowNumbers(LONG n)
    {
        for (LONG id = 1; id <= n; ++id)
            grid.Add(id, E_PROP_DT_DOUBLE);
        grid.Show();
    }
    /// Category 10 with 11 and 12, the number 15, category 20 with 21 and 22.
    void ShowCategories()
    {
        for (const LONG id : {10, 11, 12, 15, 20, 21, 22}) {
            const bool isCategory = id % 10 == 0;
            const bool isChild = !isCategory && id % 10 < 5;
            grid.Add(id, isCategory ? E_PROP_DT_CATEGORY : E_PROP_DT_DOUBLE,
                     isChild ? id / 10 * 10 : LONG{E_PROP_ID_TOP_LEVEL});
        }
        grid.Show();
    }
    /// One row of a type, id 1; of two or more collections when they were added before.
    CprpPropItem& ShowOne(EprpPropDataType type, LONG editFlags = E_PROP_EDIT_VALUE)
    {
        grid.Add(1, type, E_PROP_ID_TOP_LEVEL, editFlags);
        grid.Show();
        return grid.Item(1);
    }

    /// Ids of the rows from the top, by the item data of the platform's list box.
    std::vector<LONG> Rows()
    {
        std::vector<LONG> ids;
        for (int row = 0; row < grid.list.GetCount(); ++row)
            ids.push_back(grid.IdOf(
                reinterpret_cast<const CqorLBItem*>(grid.list.Send(LB_GETITEMDATA, static_cast<WPARAM>(row)))));
        return ids;
    }
    LONG Selected() { return grid.IdOf(grid.list.SelectedItem()); }
    void Select(LONG id) { grid.list.SelectRow(grid.RowOf(id)); }
    void SetVisible(LONG id, bool visible)
    {
        grid.Change(id, [&](IqorProperty* property) {
            EXPECT_EQ(property->SetVisible(visible ? VARIANT_TRUE : VARIANT_FALSE), S_OK);
        });
    }
    /// Marks a property as in error, with a text.
    void SetInvalid(LONG id, TextView error, std::size_t collection = 0)
    {
        grid.Change(
            id,
            [&](IqorProperty* property) {
                SetErrorText(property, error);
                EXPECT_EQ(property->SetValid(VARIANT_FALSE), S_OK);
            },
            collection);
    }
    void SetWarning(LONG id, TextView warning, std::size_t collection = 0)
    {
        grid.Change(
            id,
            [&](IqorProperty* property) {
                EXPECT_EQ(property->SetWarningString(Bstr(warning)), S_OK);
                EXPECT_EQ(property->SetWarning(VARIANT_TRUE), S_OK);
            },
            collection);
    }
    void SetReadOnly(LONG id, bool readOnly = true, std::size_t collection = 0)
    {
        grid.Change(
            id,
            [&](IqorProperty* property) {
                EXPECT_EQ(property->SetReadOnly(readOnly ? VARIANT_TRUE : VARIANT_FALSE), S_OK);
            },
            collection);
    }
    void SetValue(LONG id, TextView text, std::size_t collection = 0)
    {
        grid.Change(
            id, [&](IqorProperty* property) { SetString(property, text); }, collection);
    }
    void SetName(LONG id, TextView name)
    {
        grid.Change(id, [&](IqorProperty* property) { EXPECT_EQ(property->SetPropertyName(Bstr(name)), S_OK); });
        grid.Item(id).Refresh();
    }

    /// What the list answers to a key of the platform's list box.
    LRESULT AnswerTo(UINT key)
    {
        return SendMessageW(grid.window, WM_VKEYTOITEM, MAKEWPARAM(key, grid.list.GetCaretIndex()),
                            reinterpret_cast<LPARAM>(grid.list.Handle()));
    }
    CprpInPlaceEdit& TextBox(LONG id = 1) { return grid.Item(id).m_edit; }
    /// Selects a row and opens its editor as Return does; forgets what was heard of it.
    void OpenEditor(LONG id = 1)
    {
        grid.Click(id);
        grid.list.EditSelectedRow();
        grid.Sounds();
    }
    /// Puts a text in place of that of the open text box, as typing does.
    void TypeOver(const std::wstring& text)
    {
        SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
        SendMessageW(GetFocus(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }
    Text FocusedText()
    {
        OLECHAR text[600] = {};
        GetWindowTextW(GetFocus(), text, 600);
        return text;
    }
    bool ListHasFocus() { return GetFocus() == grid.list.Handle(); }
    Rect PlaceInList(HWND window)
    {
        const Rect onScreen = WindowRectOf(window);
        POINT corner = ToPlatform(Point{onScreen.left, onScreen.top});
        ScreenToClient(grid.list.Handle(), &corner);
        return {static_cast<int>(corner.x), static_cast<int>(corner.y), static_cast<int>(corner.x) + onScreen.Width(),
                static_cast<int>(corner.y) + onScreen.Height()};
    }
};
