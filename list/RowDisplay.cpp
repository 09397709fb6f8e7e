#include "list/RowDisplay.h"

#include "list/FirstFailure.h"
#include "list/Selection.h"

#include <algorithm>
#include <utility>

namespace {

/// Looks for a value from a place outward. @return its place, or the size when it is not there.
template <class List, class Matches>
std::size_t FindNear(const List& list, std::size_t start, const Matches& matches)
{
    const std::size_t size = list.size();
    if (size == 0)
        return size;
    std::size_t below = std::min(start, size - 1);
    std::size_t above = below + 1;
    for (bool more = true; more;) {
        more = false;
        if (below < size) { // wraps past the first element
            if (matches(list[below]))
                return below;
            --below;
            more = true;
        }
        if (above < size) {
            if (matches(list[above]))
                return above;
            ++above;
            more = true;
        }
    }
    return size;
}

template <class Visit>
bool VisitAll(const ItemList& items, const Visit& visit)
{
    for (const auto& item : items) {
        if (visit(*item) || VisitAll(item->m_listChildren, visit))
            return true;
    }
    return false;
}

bool HasCollapsedAncestor(const CqorLBItem& item)
{
    for (const CqorLBItem* parent = item.m_pParent; parent; parent = parent->m_pParent) {
        if (parent->m_bCollapsed)
            return true;
    }
    return false;
}

} // namespace

RowDisplay::~RowDisplay() = default;

void RowDisplay::ShowItem(CqorLBItem& item)
{
    const BusyScope busy(*this);
    RemoveItem(item);
    if (item.IsRetired() || !item.IsVisible() || HasCollapsedAncestor(item))
        return;
    InsertInOrder(item);
    if (!item.m_bCollapsed) {
        for (std::size_t i = 0; i < item.m_listChildren.size(); ++i) {
            if (item.m_listChildren[i]->IsVisible())
                ShowItem(*item.m_listChildren[i]);
        }
    }
    OnItemShown();
}

void RowDisplay::RemoveItem(CqorLBItem& item)
{
    const BusyScope busy(*this);
    CqorLBItem* const parent = item.m_pParent;
    if (const int row = FindRow(item); row >= 0) {
        if (IsPropertyList() && row == SelectedRow())
            SelectRow(SelectionBeforeRemoval(row, RowCount()));
        if (!item.m_bCollapsed) {
            for (std::size_t i = 0; i < item.m_listChildren.size(); ++i)
                RemoveItem(*item.m_listChildren[i]);
        }
        // The last child has taken this row along by the rule below, or it has moved.
        const int left = FindRow(item);
        if (left < 0)
            return;
        DeleteAt(left);
    } else if (!parent || !parent->m_bCollapsed || FindRow(*parent) < 0) {
        return;
    }
    if (IsPropertyList() && parent && !HasDisplayedChild(*parent))
        RemoveItem(*parent);
}

/// Under a collapsed parent no child ever has a row; there a child counts that would have one.
bool RowDisplay::HasDisplayedChild(const CqorLBItem& parent) const
{
    // From the end: a subtree goes from its first row on, so that the last child answers at once.
    return std::any_of(parent.m_listChildren.rbegin(), parent.m_listChildren.rend(), [&](const auto& child) {
        return parent.m_bCollapsed ? child->IsVisible() : FindRow(*child) >= 0;
    });
}

void RowDisplay::Collapse(CqorLBItem& item, bool setFlag)
{
    const BusyScope busy(*this);
    const bool selectionLost = CollapseRows(item);
    if (item.IsRetired())
        return;
    if (setFlag)
        item.m_bCollapsed = true;
    item.Refresh();
    if (selectionLost)
        OnSelectionLost();
}

bool RowDisplay::CollapseRows(CqorLBItem& item)
{
    bool selectionLost = false;
    for (std::size_t i = 0; i < item.m_listChildren.size(); ++i) {
        CqorLBItem& child = *item.m_listChildren[i];
        if (!child.m_bCollapsed)
            Collapse(child, false);
        const int row = FindRow(child);
        if (row < 0)
            continue;
        if (row == SelectedRow()) {
            SelectRow(-1);
            selectionLost = true;
        }
        DeleteAt(row);
    }
    return selectionLost;
}

int RowDisplay::Expand(CqorLBItem& item)
{
    const BusyScope busy(*this);
    int row = FindRow(item);
    if (row >= 0) {
        for (std::size_t i = 0; i < item.m_listChildren.size(); ++i) {
            CqorLBItem& child = *item.m_listChildren[i];
            if (child.IsRetired())
                return -1;
            if (!child.IsVisible())
                continue;
            InsertAt(++row, child);
            if (!child.m_bCollapsed)
                row = Expand(child);
        }
    }
    if (item.IsRetired())
        return -1;
    item.m_bCollapsed = false;
    item.Refresh();
    return row;
}

void RowDisplay::RefreshAll()
{
    const BusyScope busy(*this);
    FirstFailure failure;
    for (std::size_t i = 0; i < m_listRoots.size(); ++i) {
        if (m_listRoots[i]->IsVisible())
            failure.Try([&] { m_listRoots[i]->Refresh(); });
    }
    failure.Raise();
}

CqorLBItem& RowDisplay::AddRoot(std::unique_ptr<CqorLBItem> item)
{
    item->m_pParent = nullptr;
    item->m_nSiblingPlace = m_listRoots.size();
    return *m_listRoots.emplace_back(std::move(item));
}

void RowDisplay::TakeOut(CqorLBItem& item)
{
    ItemList& siblings = item.m_pParent ? item.m_pParent->m_listChildren : m_listRoots;
    const std::size_t place = PlaceOf(item);
    auto owned = std::move(siblings[place]);
    siblings.erase(siblings.begin() + static_cast<std::ptrdiff_t>(place));
    Retire(std::move(owned));
}

void RowDisplay::TakeOutAll()
{
    for (auto& root : std::exchange(m_listRoots, {}))
        Retire(std::move(root));
}

void RowDisplay::Retire(std::unique_ptr<CqorLBItem> item)
{
    const BusyScope busy(*this);
    CqorLBItem& gone = *m_listRetired.emplace_back(std::move(item));
    const auto mark = [this](CqorLBItem& each) {
        each.m_bRetired = true;
        OnItemTakenOut(each);
        return false;
    };
    mark(gone);
    VisitAll(gone.m_listChildren, mark);
}

void RowDisplay::LeaveBusy()
{
    if (m_nBusy == 1) {
        // Still busy while they go: closing their windows may send messages.
        while (!m_listRetired.empty())
            std::exchange(m_listRetired, {}).clear();
    }
    --m_nBusy;
}

int RowDisplay::FindRow(const CqorLBItem& item) const
{
    if (item.m_nRow < 0)
        return -1;
    const std::size_t row =
        FindNear(m_rows, static_cast<std::size_t>(item.m_nRow), [&](const CqorLBItem* at) { return at == &item; });
    const_cast<CqorLBItem&>(item).m_nRow = static_cast<int>(row); // a place to start from, no state of the item
    return static_cast<int>(row);
}

CqorLBItem* RowDisplay::ItemAt(int row) const
{
    return row >= 0 && row < RowCount() ? m_rows[static_cast<std::size_t>(row)] : nullptr;
}

CqorLBItem* RowDisplay::FindItem(LONG nID, bool useRefID) const
{
    CqorLBItem* found = nullptr;
    VisitAll(m_listRoots, [&](CqorLBItem& item) {
        const bool hit = useRefID ? item.HasRefID(nID) : item.HasItemID(nID);
        if (hit)
            found = &item;
        return hit;
    });
    return found;
}

std::vector<CqorLBItem*> RowDisplay::CollectItems() const
{
    std::vector<CqorLBItem*> items;
    VisitAll(m_listRoots, [&](CqorLBItem& item) {
        items.push_back(&item);
        return false;
    });
    return items;
}

bool RowDisplay::HasItem(const CqorLBItem* item) const
{
    return VisitAll(m_listRoots, [&](const CqorLBItem& each) { return &each == item; });
}

void RowDisplay::ForgetRows()
{
    for (CqorLBItem* item : std::exchange(m_rows, {}))
        item->m_nRow = -1;
}

void RowDisplay::InsertAt(int row, CqorLBItem& item)
{
    CqorLBItem* const selected = IsPropertyList() ? ItemAt(SelectedRow()) : nullptr;
    m_rows.insert(m_rows.begin() + row, &item); // ahead of the window, which asks for the new row at once
    item.m_nRow = row;
    InsertRow(row, item);
    if (selected && FindRow(*selected) >= 0 && FindRow(*selected) != SelectedRow())
        SelectRow(FindRow(*selected));
}

void RowDisplay::DeleteAt(int row)
{
    m_rows[static_cast<std::size_t>(row)]->m_nRow = -1;
    m_rows.erase(m_rows.begin() + row);
    DeleteRow(row);
}

/// The selected item is selected again even where it has kept its row, which scrolls it into view.
void RowDisplay::InsertInOrder(CqorLBItem& item)
{
    const int row = RowFor(item);
    CqorLBItem* const selected = IsPropertyList() ? ItemAt(SelectedRow()) : nullptr;
    InsertAt(row, item);
    if (selected && FindRow(*selected) >= 0)
        SelectRow(FindRow(*selected));
}

/// The row that the item belongs at. Inserts the rows of ancestors that are missing.
int RowDisplay::RowFor(CqorLBItem& item)
{
    const ItemList& siblings = SiblingsOf(item);
    for (std::size_t place = PlaceOf(item); place-- > 0;) {
        const CqorLBItem& earlier = *siblings[place];
        if (earlier.IsVisible() && FindRow(earlier) >= 0)
            return LastRowOf(earlier) + 1;
    }
    if (!item.m_pParent)
        return 0;
    if (FindRow(*item.m_pParent) < 0)
        InsertInOrder(*item.m_pParent);
    return FindRow(*item.m_pParent) + 1;
}

int RowDisplay::LastRowOf(const CqorLBItem& item) const
{
    if (!item.m_bCollapsed) {
        for (std::size_t i = item.m_listChildren.size(); i-- > 0;) {
            if (FindRow(*item.m_listChildren[i]) >= 0)
                return LastRowOf(*item.m_listChildren[i]);
        }
    }
    return FindRow(item);
}

const ItemList& RowDisplay::SiblingsOf(const CqorLBItem& item) const
{
    return item.m_pParent ? item.m_pParent->m_listChildren : m_listRoots;
}

std::size_t RowDisplay::PlaceOf(CqorLBItem& item) const
{
    item.m_nSiblingPlace =
        FindNear(SiblingsOf(item), item.m_nSiblingPlace, [&](const auto& each) { return each.get() == &item; });
    return item.m_nSiblingPlace;
}
