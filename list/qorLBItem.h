// CqorLBItem, the abstract row of the property list: a node of the item tree that may have a row in the list box.
// It knows its place in the tree and its states; what it shows and how it is edited is left to the classes of rows.
#pragma once

#include "list/DrawSettings.h"
#include "list/RowLayout.h"
#include "platform/com/Ole.h"

#include <memory>
#include <vector>

class CqorLBItem;
class CqorODListBox;

/// Children of a row, or the roots of the list, in display order.
using ItemList = std::vector<std::unique_ptr<CqorLBItem>>;

class CqorLBItem {
public:
    /// @param pListBox  the list that shows the item; outlives it. Null in a tree without a window.
    explicit CqorLBItem(CqorODListBox* pListBox, CqorLBItem* pParent = nullptr)
        : m_pParent(pParent), m_pListBox(pListBox)
    {
    }
    CqorLBItem(const CqorLBItem&) = delete;
    CqorLBItem& operator=(const CqorLBItem&) = delete;

    // The order of the virtual operations is fixed.
    virtual ~CqorLBItem();
    virtual void Draw(const SqorLBDrawContext& context) = 0;
    /// @return row height in pixels
    virtual int MeasureItem(const SqorLBDrawSettings& settings, HDC hDC) = 0;
    /// Opens the editor of the row. May commit another edit, and so call out to hosts, by taking the focus.
    virtual void Edit(const Rect& data, const Rect& row, const Rect& indent) = 0;
    /// Closes the editor of the row. May call out to hosts.
    virtual void EndEdit(bool commit) = 0;
    /// @return pixels
    virtual int GetNameWidth(HDC hDC, const SqorLBDrawSettings& settings) = 0;
    virtual int GetDataWidth(HDC hDC, const SqorLBDrawSettings& settings) = 0;
    /// Reads everything that is shown anew, for the item and its children.
    virtual void Refresh() = 0;
    virtual void Refresh_Internal(LONG nFirst, LONG nSecond, LONG nThird);
    virtual void OnDoubleClick() {}
    virtual bool IsInvalid() const { return m_bInvalid; }
    virtual bool IsVisible() const { return m_bVisible; }
    virtual bool IsInWarning() const { return m_bWarning; }
    virtual bool HasInvalidChild() const { return m_bChildInvalid; }
    virtual bool HasItemID(LONG nID) const { return nID == m_nItemID; }
    virtual bool HasRefID(LONG nID) const { return nID == m_nRefID; }
    /// Colours an editor on the row. True when the item has set the colours itself.
    virtual bool OnCtlColor(HDC hDC, HWND hWnd, UINT nControlType, const SqorLBDrawSettings& settings);

    /// Appends a child, which from now on belongs to this item.
    CqorLBItem& AddChild(std::unique_ptr<CqorLBItem> child);
    bool HasChildren() const { return !m_listChildren.empty(); }
    /// 1 for a root, one more for each ancestor.
    int Level() const;
    /// True when this item or one of its ancestors was taken out of the list; nothing may be asked of it any more.
    bool IsRetired() const { return m_bRetired; }

    ItemList m_listChildren;
    Text m_strName; ///< text of the name column
    bool m_bCollapsed = true;
    CqorLBItem* m_pParent; ///< null for a root
    CqorODListBox* m_pListBox;
    bool m_bReadOnly = false;
    bool m_bInvalid = false;
    bool m_bVisible = true;
    bool m_bWarning = false;
    bool m_bChildInvalid = false;
    LONG m_nItemID = -1; ///< search keys of FindItem
    LONG m_nRefID = -1;
    Text m_strError; ///< the four tip texts
    Text m_strWarning;
    Text m_strHelp;
    Text m_strFallbackTip;
    int m_nPrecision = 4; ///< decimals of the data text

private:
    friend class RowDisplay;

    int m_nRow = -1;                 // row when last looked up; -1 while it has none
    std::size_t m_nSiblingPlace = 0; // place among the siblings when last looked up
    bool m_bRetired = false;
};
