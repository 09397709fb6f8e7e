// CqorODListBox, the scrolling owner-drawn list on which a property sheet is painted.
//
// The platform list box is a container of rows only: the items stand in a tree beside it, and showing, hiding,
// expanding and collapsing insert and delete rows. User-interface thread only. Painting creates and destroys the
// editors of the selected row, editors commit when they lose the focus, and commits call hosts: every operation here
// may come back into the list, and no item pointer is used after a call out without asking whether it is retired.
//
// The bodies are told by subject: the window itself, keys, mouse and tips, measuring and painting, tree lists.
#pragma once

#include "list/Divider.h"
#include "list/DrawSettings.h"
#include "list/GridHost.h"
#include "list/RowDisplay.h"
#include "list/RowFacts.h"
#include "list/RowPaint.h"
#include "platform/win/Controls.h"
#include "platform/win/HandleOwners.h"

#include <commctrl.h>

class CqorODListBox final : public CListBox, public RowDisplay, public WindowLifetime {
public:
    CqorODListBox();
    ~CqorODListBox() override;

    /// Makes the list box window with its tooltip. The host is kept in memory around every message; it may be null.
    bool Create(DWORD style, const Rect& place, HWND parent, UINT id, GridHost* host);

    // Items and rows
    void ExpandCollapse(CqorLBItem& item);
    /// Removes the row of an item whose property is gone, and the item itself.
    void DropItem(CqorLBItem& item);
    /// Ends the edit with a commit, then takes all rows and items out.
    void Clear();
    CqorLBItem* SelectedItem() const { return ItemAt(GetCurSel()); }
    /// Selects a row as a host does: no notification.
    void SelectRow(int row) override { SetCurSel(row); }
    RowFacts FactsOf(int row) const;

    // Editing
    /// Closes the editor of the selected rows. May call hosts.
    void EndEdit() { CloseEditors(true); }
    void CancelEdit() { CloseEditors(false); }
    /// Opens the editor of the selected row, after the painting that makes it.
    void EditSelectedRow();

    // Looks
    /// Makes the font; the rows keep their heights until they are measured anew.
    void SetListFont(const LOGFONTW& font);
    void MeasureAllRows();
    void SetImageList(HIMAGELIST list);   ///< not owned; null is ignored
    void SetWarningPrefix(TextView text); ///< an empty one is ignored
    void SetBackground(COLORREF colour);
    void AutoFitDivider();
    void SetHoldExtent(bool hold, bool update);
    void HideToolTip();
    void UpdateToolTip();

    // Layout
    RowRects RectsOf(int row) const;
    Rect RowRect(int row) const { return GetRowRect(row); }
    RowPart HitTest(Point client) const;

    // For rows
    HFONT ListFont() const { return m_fontList.Get(); }
    HFONT BoldFont();                 ///< the list font at weight 700
    HDC MeasuringDc();                ///< with the list font; a row that selects another puts it back
    int TextHeight();                 ///< of one line in the list font
    int TextBoxHeight(int proposed);  ///< that a text box of a proposed height really has
    int DropListHeight(int proposed); ///< likewise of a closed drop list
    int FontGeneration() const { return m_nFontGeneration; } ///< changes with the font

    void EnterMessage() noexcept override;
    void LeaveMessage() noexcept override;

    /// Holds drawing while many rows come or go, then redraws once. Does nothing inside of another hold.
    class RedrawHold {
    public:
        explicit RedrawHold(CqorODListBox& list);
        ~RedrawHold();
        RedrawHold(const RedrawHold&) = delete;
        RedrawHold& operator=(const RedrawHold&) = delete;

    private:
        CqorODListBox* m_list;
    };

    /// While one stands, rows are appended in bulk, in display order, with drawing held.
    class FillScope {
    public:
        explicit FillScope(CqorODListBox& list);
        ~FillScope();
        FillScope(const FillScope&) = delete;
        FillScope& operator=(const FillScope&) = delete;

    private:
        CqorODListBox& m_list;
    };

    int m_nRowUnit = kListMetrics.rowUnit; ///< width of one tree level and of the expand box column
    bool m_bDragEnabled = false;
    bool m_bAllowEditing = false;
    bool m_bSingleLevelIndent = true;
    bool m_bShowExtendedInfo = true;
    bool m_bShowHelpTooltips = true;
    COLORREF m_crTreeLine = 0; ///< of connector lines
    SqorLBDrawSettings m_settings;
    bool m_bDividerDrag = false;
    int m_nDividerPos = kListMetrics.dividerStart; ///< pixels from the left edge
    HCURSOR m_hCursorWait;
    HCURSOR m_hClassCursor = nullptr; ///< of the window class, as found after creation
    int m_nTipItem = -1;              ///< row that the tip belongs to

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnException() noexcept override;
    WindowLifetime* Lifetime() override { return this; }

    void InsertRow(int row, CqorLBItem& item) override;
    void DeleteRow(int row) override { CListBox::DeleteRow(row); }
    int SelectedRow() const override { return GetCurSel(); }
    void OnSelectionLost() override { RaiseSelectionChanged(); }
    void OnItemShown() override;
    void OnItemTakenOut(CqorLBItem& item) override;

private:
    // The window
    LRESULT OnReflected(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnDestroy(UINT message);
    LRESULT OnSetFocus(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnScroll(WPARAM wParam, LPARAM lParam);
    LRESULT OnWheel(WPARAM wParam);
    void Zoom(int notches);
    void CloseEditors(bool commit);
    void RaiseSelectionChanged();
    void PostToggled(CqorLBItem& item);
    void Redraw() const;
    LRESULT SendToParent(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    // Keys
    LRESULT OnKey(UINT key);
    LRESULT OnLeftKey(int row);
    LRESULT OnRightKey(int row);
    void TakeDividerStep(DividerStep step);
    void ShowContextMenu() const;

    // Mouse and tips
    LRESULT OnMouseMove(Point client, WPARAM wParam, LPARAM lParam);
    LRESULT OnMouseLeave();
    LRESULT OnLeftDown(Point client, WPARAM wParam, LPARAM lParam);
    LRESULT OnLeftUp(Point client, WPARAM wParam, LPARAM lParam);
    LRESULT OnDoubleClick(Point client, WPARAM wParam, LPARAM lParam);
    LRESULT OnRightDown(LPARAM lParam);
    void StartDividerDrag();
    void StopDividerDrag();
    Point Corrected(Point client) const;
    bool IsOverDivider(Point corrected) const;
    void SetClassCursor(HCURSOR cursor);
    void CreateToolTip(int width);
    void ShowTipFor(Point client);
    TOOLINFOW Tool() const;

    // Measuring and painting
    LRESULT OnMeasureItem(MEASUREITEMSTRUCT& measure);
    LRESULT OnDrawItem(const DRAWITEMSTRUCT& draw);
    LRESULT OnEraseBackground(HDC dc);
    LRESULT OnControlColour(UINT message, HDC dc, HWND window);
    LRESULT OnPaint(UINT message, WPARAM wParam, LPARAM lParam);
    void PaintIndent(HDC dc, const Rect& indent, const CqorLBItem& item, int row);
    RowColumns ColumnsOf(const CqorLBItem& item) const;
    HBRUSH BackgroundBrush();

    // Tree lists
    bool IsTreeList() const { return m_eListType == ListType::TreeList; }
    void StopPendingEdit();
    LRESULT OnTreeKey(UINT key, int row);
    void SelectTreeRange(int from, int to);
    LRESULT OnTreeLeftDown(Point client, WPARAM wParam, LPARAM lParam);
    LRESULT OnTreeLeftUp(Point client, WPARAM wParam, LPARAM lParam);
    bool StartTreeDrag(Point client, WPARAM wParam);
    void OnPendingEdit();
    void UpdateHorizontalExtent();
    std::vector<int> SelectedRows() const;
    Connectors ConnectorsOf(const CqorLBItem& item, int row) const;

    GridHost* m_pHost = nullptr;
    BrushOwner m_brBackground; ///< made on first use
    FontOwner m_fontList;
    FontOwner m_fontBold;
    MemoryDcOwner m_dcMeasure;
    int m_nFontGeneration = 0;
    int m_nTextHeight = 0; ///< 0 while not measured in the present font; likewise the next two
    int m_nTextBoxHeight = 0;
    int m_nDropListHeight = 0;
    HIMAGELIST m_pImageList = nullptr;
    Text m_strWarningPrefix;
    HWND m_hToolTip = nullptr;
    Text m_strTip; ///< text that the tip holds
    HCURSOR m_hCursorArrow;
    HCURSOR m_hCursorSizeWE;
    HCURSOR m_hCursorNo;
    bool m_bDividerDoubleClicked = false;
    bool m_bMouseTracked = false;
    bool m_bHoldExtent = false;
    bool m_bRedrawOff = false; ///< as the last WM_SETREDRAW said
    bool m_bFilling = false;
    bool m_bPainting = false;
    bool m_bFocusInPaint = false; ///< asking for the focus once a paint, not once a row

    // Tree lists
    int m_nEditPendingItem = -1;
    UINT m_nEditDelay; ///< milliseconds
    Rect m_rcDragStart;
    Point m_ptDragStart;
    bool m_bDragging = false;
    bool m_bDragArmed = false;
    int m_nPressedRow = -1; ///< whose selection the button-up decides
};
