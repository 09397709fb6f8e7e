// Which items have a row and where it stands: showing, removing, collapsing and expanding. The window's part, the
// rows themselves, is a handful of virtual operations, so that the rules run and are tested without a window.
//
// Invariant: m_rows[i] is the item of row i of the window. Finding the row of an item costs as many steps as rows
// came and went before it since it was last looked up; finding its place among its siblings likewise.
//
// Any call to the window or to an item may call out to a host that takes items away. Such items leave the tree at
// once but are destroyed only when the last BusyScope ends; loops over children go by index for the same reason.
#pragma once

#include "list/qorLBItem.h"

#include <memory>
#include <vector>

class RowDisplay {
public:
    RowDisplay(const RowDisplay&) = delete;
    RowDisplay& operator=(const RowDisplay&) = delete;

    /// Gives the item a row at its place, if it is visible and no ancestor is collapsed, and so for its visible
    /// children. A row that it has is removed first: for an only child the parent's row goes and comes back.
    void ShowItem(CqorLBItem& item);
    /// Takes the row of the item and those of its children away. A parent without a displayed child goes as well.
    void RemoveItem(CqorLBItem& item);
    /// Takes the rows of all descendants away. Inner items keep their own flags and open again as they were.
    /// @param setFlag  false inside of another collapse
    void Collapse(CqorLBItem& item, bool setFlag);
    /// Gives rows to the visible descendants. An item without a row is marked and refreshed only.
    /// @return the last row of the subtree, -1 without a row
    int Expand(CqorLBItem& item);

    /// Refreshes every visible root and thereby its children. A row that fails leaves the others to be refreshed; the
    /// first failure is raised at the end.
    void RefreshAll();

    /// Appends a root without a row.
    CqorLBItem& AddRoot(std::unique_ptr<CqorLBItem> item);
    /// Takes an item out of its parent or the roots, for good; its row must be gone.
    void TakeOut(CqorLBItem& item);
    /// Takes out all items. The window's rows must be gone.
    void TakeOutAll();

    /// Row of the item, -1 when it has none.
    int FindRow(const CqorLBItem& item) const;
    /// Item of a row, null outside of the rows.
    CqorLBItem* ItemAt(int row) const;
    int RowCount() const { return static_cast<int>(m_rows.size()); }
    const ItemList& Roots() const { return m_listRoots; }
    /// First hit depth first from the roots, by item or by reference id; null when there is none.
    CqorLBItem* FindItem(LONG nID, bool useRefID) const;
    /// All items, each followed by its descendants.
    std::vector<CqorLBItem*> CollectItems() const;
    /// True when the item is in the tree. Costs a walk; for pointers that come out of a message queue.
    bool HasItem(const CqorLBItem* item) const;

    /// While one stands, items that are taken out stay in memory.
    class BusyScope {
    public:
        explicit BusyScope(RowDisplay& display) : m_display(display) { display.EnterBusy(); }
        ~BusyScope() { m_display.LeaveBusy(); }
        BusyScope(const BusyScope&) = delete;
        BusyScope& operator=(const BusyScope&) = delete;

    private:
        RowDisplay& m_display;
    };

    ListType m_eListType = ListType::NotChosen;

protected:
    RowDisplay() = default;
    virtual ~RowDisplay();

    virtual void InsertRow(int row, CqorLBItem& item) = 0;
    virtual void DeleteRow(int row) = 0;
    /// -1 when none is selected.
    virtual int SelectedRow() const = 0;
    virtual void SelectRow(int row) = 0;
    /// A collapse has taken the selection away.
    virtual void OnSelectionLost() = 0;
    /// An item and its children have got their rows.
    virtual void OnItemShown() {}
    /// Last chance of an item that is taken out to close its windows without a commit.
    virtual void OnItemTakenOut(CqorLBItem&) {}

    /// As a BusyScope does.
    void EnterBusy() { ++m_nBusy; }
    void LeaveBusy();
    bool IsPropertyList() const { return m_eListType == ListType::PropertyList; }
    /// For a window that has dropped all its rows at once.
    void ForgetRows();

private:
    void InsertAt(int row, CqorLBItem& item);
    void DeleteAt(int row);
    void InsertInOrder(CqorLBItem& item);
    int RowFor(CqorLBItem& item);
    int LastRowOf(const CqorLBItem& item) const;
    bool HasDisplayedChild(const CqorLBItem& parent) const;
    bool CollapseRows(CqorLBItem& item);
    const ItemList& SiblingsOf(const CqorLBItem& item) const;
    std::size_t PlaceOf(CqorLBItem& item) const;
    void Retire(std::unique_ptr<CqorLBItem> item);

    ItemList m_listRoots;
    std::vector<CqorLBItem*> m_rows;
    ItemList m_listRetired;
    int m_nBusy = 0;
};
