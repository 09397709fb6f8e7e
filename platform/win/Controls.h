// The platform's controls under their well-known names; only what is used.
#pragma once

#include "platform/win/SubclassedWindow.h"

#include <utility>

class CListBox : public SubclassedWindow {
public:
    // The rows are sent to past all hooks: a tooltip's hook makes each message a hundred times slower.
    int GetCount() const { return AsInt(Default(LB_GETCOUNT)); }
    int GetCurSel() const { return AsInt(Default(LB_GETCURSEL)); }
    void SetCurSel(int row) { Default(LB_SETCURSEL, static_cast<WPARAM>(row)); }
    int InsertRow(int row, const void* data)
    {
        return AsInt(Default(LB_INSERTSTRING, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(data)));
    }
    void DeleteRow(int row) { Default(LB_DELETESTRING, static_cast<WPARAM>(row)); }
    void ResetContent() { Default(LB_RESETCONTENT); }
    int GetTopIndex() const { return AsInt(Default(LB_GETTOPINDEX)); }
    void SetTopIndex(int row) { Default(LB_SETTOPINDEX, static_cast<WPARAM>(row)); }
    void SetRowHeight(int row, int height) { Default(LB_SETITEMHEIGHT, static_cast<WPARAM>(row), height); }
    int GetRowHeight(int row) const { return AsInt(Default(LB_GETITEMHEIGHT, static_cast<WPARAM>(row))); }
    int GetCaretIndex() const { return AsInt(Default(LB_GETCARETINDEX)); }
    void SetCaretIndex(int row) { Default(LB_SETCARETINDEX, static_cast<WPARAM>(row)); }
    int GetAnchorIndex() const { return AsInt(Default(LB_GETANCHORINDEX)); }
    void SetAnchorIndex(int row) { Default(LB_SETANCHORINDEX, static_cast<WPARAM>(row)); }
    bool GetSel(int row) const { return Default(LB_GETSEL, static_cast<WPARAM>(row)) > 0; }
    /// Row -1 stands for all rows.
    void SetSel(int row, bool selected) { Default(LB_SETSEL, selected, row); }
    int GetSelCount() const { return AsInt(Default(LB_GETSELCOUNT)); }
    void SetHorizontalExtent(int width) { Default(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width)); }
    Rect GetRowRect(int row) const
    {
        RECT r{};
        Default(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&r));
        return {r.left, r.top, r.right, r.bottom};
    }

    struct NearestRow {
        int row; ///< -1 in an empty list
        bool inside;
    };
    NearestRow RowFromPoint(Point p) const
    {
        const auto found = static_cast<DWORD>(Default(LB_ITEMFROMPOINT, 0, MAKELPARAM(p.x, p.y)));
        return {GetCount() == 0 ? -1 : LOWORD(found), HIWORD(found) == 0};
    }

private:
    static int AsInt(LRESULT result) { return static_cast<int>(result); }
};

class CEdit : public SubclassedWindow {
public:
    void LimitText(int characters) { Send(EM_LIMITTEXT, static_cast<WPARAM>(characters)); }
    void SetMargins(int left, int right)
    {
        Send(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(left, right));
    }
    /// Start and end, the end exclusive.
    std::pair<int, int> GetSel() const
    {
        DWORD start = 0;
        DWORD end = 0;
        Send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        return {static_cast<int>(start), static_cast<int>(end)};
    }
    void SetSel(int start, int end) { Send(EM_SETSEL, static_cast<WPARAM>(start), end); }
    void ReplaceSel(const Text& text, bool canUndo)
    {
        Send(EM_REPLACESEL, canUndo, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void EmptyUndoBuffer() { Send(EM_EMPTYUNDOBUFFER); }
    void ScrollCaret() { Send(EM_SCROLLCARET); }
};

class CButton : public SubclassedWindow {};

class CComboBox : public SubclassedWindow {
public:
    int GetCurSel() const { return static_cast<int>(Send(CB_GETCURSEL)); }
    void SetCurSel(int entry) { Send(CB_SETCURSEL, static_cast<WPARAM>(entry)); }
    int AddString(const Text& text)
    {
        return static_cast<int>(Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())));
    }
    void SetItemData(int entry, LPARAM data) { Send(CB_SETITEMDATA, static_cast<WPARAM>(entry), data); }
    LPARAM GetItemData(int entry) const { return Send(CB_GETITEMDATA, static_cast<WPARAM>(entry)); }
    /// Entry whose whole text this is, letter case aside; -1 when there is none.
    int FindWholeText(const Text& text) const
    {
        return static_cast<int>(
            Send(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str())));
    }
    /// Selects the first entry that begins with a text.
    int SelectPrefix(const Text& text)
    {
        return static_cast<int>(Send(CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str())));
    }
    Text EntryText(int entry) const
    {
        const LRESULT length = Send(CB_GETLBTEXTLEN, static_cast<WPARAM>(entry));
        if (length < 0)
            return {};
        Text text(static_cast<std::size_t>(length), 0);
        Send(CB_GETLBTEXT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(text.data()));
        return text;
    }
    void ResetContent() { Send(CB_RESETCONTENT); }
    void ShowDropDown(bool show) { Send(CB_SHOWDROPDOWN, show); }
    bool IsDroppedDown() const { return Send(CB_GETDROPPEDSTATE) != 0; }
};
