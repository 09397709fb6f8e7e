// Following the collections: the records of an event stream, applied to the rows one by one.
#include "viewer/EventRecords.h"
#include "viewer/ViewerSource.h"
#include "viewer/prpCollectionViewerCtrl.h"

/// Drawing of the list, off from the first record that changes rows to the end of the stream.
class CprpCollectionViewerCtrl::RedrawSwitch {
public:
    explicit RedrawSwitch(const CqorODListBox& list) : m_list(list) {}
    RedrawSwitch(const RedrawSwitch&) = delete;
    RedrawSwitch& operator=(const RedrawSwitch&) = delete;

    void TurnOff()
    {
        if (m_bOff || !m_list.Exists())
            return;
        m_bOff = true;
        m_list.Send(WM_SETREDRAW, FALSE);
    }
    /// Paints at once.
    void TurnOn()
    {
        if (!m_bOff || !m_list.Exists())
            return;
        m_bOff = false;
        m_list.Send(WM_SETREDRAW, TRUE);
        RedrawWindow(m_list.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    }

private:
    const CqorODListBox& m_list;
    bool m_bOff = false;
};

HRESULT CprpCollectionViewerCtrl::OnCollectionEvents(IqorStream* stream, IqorPropertyCollection&)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::PropertyEventStream"), [&](const Checks& require) {
        require.Pointer(stream, OLESTR("pIEventStream"), InViewer());
        const CComPtr<IOleObject> kept(this);
        const RowDisplay::BusyScope busy(m_listBox);
        ApplyEvents(*stream);
    });
}

/// On purpose: after a failure of the stream itself drawing stays off until the next good stream that changes rows.
void CprpCollectionViewerCtrl::ApplyEvents(IqorStream& stream)
{
    const unsigned showing = m_nShowing;
    EventRecords records(stream);
    RedrawSwitch redraw(m_listBox);
    SprpEventInfo record{};
    while (showing == m_nShowing && records.Next(record)) {
        if (!EventRecords::ChangesRows(record))
            continue;
        redraw.TurnOff();
        try {
            if (record.eEventType == E_PROP_EVENT_PROP_EDITED)
                ApplyEdited(record);
            else if (record.eEventType == E_PROP_EVENT_PROP_DELETED)
                ApplyDeleted(record.nPropID);
        } catch (...) {
            redraw.TurnOn();
            throw;
        }
    }
    redraw.TurnOn();
    UpdateListVisibility();
}

void CprpCollectionViewerCtrl::ApplyEdited(const SprpEventInfo& record)
{
    CprpPropItem* const item = RowFor(record.nPropID);
    if (!item)
        return;
    item->Refresh();
    if (record.bVisiblityChanged != VARIANT_FALSE)
        ApplyVisibility(record.nPropID);
    if (!item->IsRetired() && item == SelectedRow())
        m_listBox.UpdateToolTip();
}

void CprpCollectionViewerCtrl::ApplyVisibility(LONG id)
{
    const unsigned showing = m_nShowing;
    CprpPropItem* const item = RowFor(id);
    if (item == SelectedRow()) {
        m_listBox.EndEdit();
        m_listBox.HideToolTip();
        if (showing != m_nShowing || item != RowFor(id))
            return;
    }
    if (!m_mapVisOverrides.contains(id)) {
        CqorLBItem* const parent = item->m_pParent;
        if (!item->IsVisible()) {
            m_listBox.RemoveItem(*item);
        } else if (!parent) {
            m_listBox.ShowItem(*item);
        } else {
            parent->Refresh();
            if (!parent->m_bCollapsed)
                m_listBox.ShowItem(*item);
            else if (m_listBox.FindRow(*parent) < 0 && parent->IsVisible())
                m_listBox.ShowItem(*parent); // collapsed: its own row alone comes back
        }
    }
    UpdateListVisibility();
}

/// The node stays until the next content: a property that is added again with the id is not shown.
void CprpCollectionViewerCtrl::ApplyDeleted(LONG id)
{
    CprpMultiplePropInfo* const node = m_treeProperties.Find(id);
    if (!node || !node->m_pItem)
        return;
    CprpPropItem& item = *node->m_pItem;
    PropertyTree::VisitSubtree(*node, [](CprpMultiplePropInfo& gone) { gone.m_pItem = nullptr; });
    m_listBox.DropItem(item);
}
