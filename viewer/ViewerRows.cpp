// What hosts ask and order of single rows: selection, editing, expanding, places, the collections behind a row.
#include "viewer/prpCollectionViewerCtrl.h"

#include "core/VariantBool.h"
#include "platform/win/Rectangles.h"
#include "viewer/ViewerSource.h"

#include <algorithm>

CprpPropItem* CprpCollectionViewerCtrl::RowFor(LONG id) const
{
    const CprpMultiplePropInfo* const node = m_treeProperties.Find(id);
    return node ? node->m_pItem : nullptr;
}

/// Every row of the list is one of a property.
CprpPropItem* CprpCollectionViewerCtrl::SelectedRow() const
{
    return m_listBox.Exists() ? static_cast<CprpPropItem*>(m_listBox.SelectedItem()) : nullptr;
}

/// Does what the button of a row does by default. Unknown ids are ignored.
STDMETHODIMP CprpCollectionViewerCtrl::DoDefaultExtendedInfoAction(LONG PropertyID)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::DoDefaultExtendedInfoAction"), [&](const Checks&) {
        const CComPtr<IOleObject> kept(this);
        const RowDisplay::BusyScope busy(m_listBox);
        if (CprpPropItem* const row = RowFor(PropertyID))
            row->DoDefaultExtendedAction();
    });
}

/// Id of the selected row, -1 without one.
STDMETHODIMP CprpCollectionViewerCtrl::GetSelectedProperty(LONG* PropertyID)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::GetSelectedProperty"), [&](const Checks& require) {
        require.Pointer(PropertyID, OLESTR("pnPropertyID"), InViewer());
        const CprpPropItem* const row = SelectedRow();
        *PropertyID = row && row->m_pPropInfo ? row->m_pPropInfo->m_nPropertyID : LONG{E_PROP_ID_INVALID};
    });
}

/// Selects the row of a property and fires SelectionChanged, also when it is selected already. An open editor commits
/// first. A property without a row, as in a collapsed category, is ignored.
STDMETHODIMP CprpCollectionViewerCtrl::SetSelectedProperty(LONG PropertyID)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::SetSelectedProperty"), [&](const Checks&) {
        const CComPtr<IOleObject> kept(this);
        const auto rowNumber = [&] {
            const CprpPropItem* const row = RowFor(PropertyID);
            return row ? m_listBox.FindRow(*row) : -1;
        };
        if (rowNumber() < 0)
            return;
        m_listBox.EndEdit();
        const int row = rowNumber(); // the commit may have moved it or taken it away
        if (row < 0)
            return;
        m_listBox.SelectRow(row);
        Fire(&Proxy::Fire_SelectionChanged, PropertyID);
    });
}

STDMETHODIMP CprpCollectionViewerCtrl::AutoFitDivider()
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::AutoFitDivider"), [&](const Checks&) {
        if (m_listBox.Exists())
            m_listBox.AutoFitDivider();
    });
}

/// Fires nothing and is not remembered as the state of the category. Unknown ids and rows without children are
/// ignored.
STDMETHODIMP CprpCollectionViewerCtrl::ExpandCollapseProperty(LONG PropertyID, VARIANT_BOOL ExpandProperty)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::ExpandCollapseProperty"), [&](const Checks&) {
        const CComPtr<IOleObject> kept(this);
        CprpPropItem* const row = RowFor(PropertyID);
        if (row && row->HasChildren() && row->m_bCollapsed == In(ExpandProperty))
            m_listBox.ExpandCollapse(*row);
    });
}

void CprpCollectionViewerCtrl::EditSelectedRow()
{
    constexpr unsigned kNoItemLine = 398;
    const int row = m_listBox.Exists() ? m_listBox.GetCurSel() : -1;
    if (row < 0)
        return;
    if (!m_listBox.ItemAt(row))
        ThrowInternal({kViewerSource, kNoItemLine});
    m_listBox.EditSelectedRow();
}

/// Opens the editor of the selected row; does nothing without a selection.
STDMETHODIMP CprpCollectionViewerCtrl::DoInPlaceEdit()
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::DoInPlaceEdit"), [&](const Checks&) {
        const CComPtr<IOleObject> kept(this);
        EditSelectedRow();
    });
}

/// Closes the editor and takes its text.
STDMETHODIMP CprpCollectionViewerCtrl::EndInPlaceEdit()
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::EndInPlaceEdit"), [&](const Checks&) {
        const CComPtr<IOleObject> kept(this);
        if (m_listBox.Exists())
            m_listBox.EndEdit();
    });
}

/// Closes the editor and drops its text.
STDMETHODIMP CprpCollectionViewerCtrl::CancelInPlaceEdit()
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::CancelInPlaceEdit"), [&](const Checks&) {
        const CComPtr<IOleObject> kept(this);
        if (m_listBox.Exists())
            m_listBox.CancelEdit();
    });
}

/// Place of a value, the button's area included, in client pixels of the control; zeros without a row.
STDMETHODIMP CprpCollectionViewerCtrl::GetPropertyDataRect(LONG PropertyID, LONG* Left, LONG* Top, LONG* Right,
                                                           LONG* Bottom)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::GetPropertyDataRect"), [&](const Checks& require) {
        require.Pointer(Left, OLESTR("pnLeft"), InViewer());
        require.Pointer(Top, OLESTR("pnTop"), InViewer());
        require.Pointer(Right, OLESTR("pnRight"), InViewer());
        require.Pointer(Bottom, OLESTR("pnBottom"), InViewer());
        RECT place{};
        const CprpPropItem* const item = RowFor(PropertyID);
        const int row = item ? m_listBox.FindRow(*item) : -1;
        if (row >= 0) {
            place = ToPlatform(m_listBox.RectsOf(row).data);
            MapWindowPoints(m_listBox.Handle(), ControlWindow(), reinterpret_cast<POINT*>(&place), 2);
        }
        *Left = place.left;
        *Top = place.top;
        *Right = place.right;
        *Bottom = place.bottom;
    });
}

/// Window of the open text box; 0 without one.
STDMETHODIMP CprpCollectionViewerCtrl::GetInPlaceEditHWND(LONG_PTR* Window)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::GetInPlaceEditHWND"), [&](const Checks& require) {
        require.Pointer(Window, OLESTR("phWnd"), InViewer());
        const CprpPropItem* const row = SelectedRow();
        *Window = reinterpret_cast<LONG_PTR>(row ? row->GetEditWindow() : nullptr);
    });
}

/// Number of collections behind a property; 0 for an unknown id.
STDMETHODIMP CprpCollectionViewerCtrl::GetNumRefPropCollections(LONG PropertyID, LONG* NumReferences)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::GetNumRefPropCollections"), [&](const Checks& require) {
        require.Pointer(NumReferences, OLESTR("pnNumReferences"), InViewer());
        const CprpMultiplePropInfo* const node = m_treeProperties.Find(PropertyID);
        *NumReferences = node ? static_cast<LONG>(node->m_listCollections.size()) : 0;
    });
}

/// Collections behind a property.
/// @param RefCollections     room for ListLength pointers; filled in order, without references, when all have room
/// @param NumRefCollections  out, their number, also when they have no room
/// @param Success            out, whether the array was filled
STDMETHODIMP CprpCollectionViewerCtrl::GetRefPropCollections(LONG PropertyID, IqorPropertyCollection** RefCollections,
                                                             LONG ListLength, LONG* NumRefCollections,
                                                             VARIANT_BOOL* Success)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::GetRefPropCollections"), [&](const Checks& require) {
        require.Pointer(RefCollections, OLESTR("ppRefCollections"), InViewer());
        require.Pointer(NumRefCollections, OLESTR("pnNumRefCollections"), InViewer());
        require.Pointer(Success, OLESTR("pbSuccess"), InViewer());
        *NumRefCollections = 0;
        *Success = VARIANT_FALSE;
        const CprpMultiplePropInfo* const node = m_treeProperties.Find(PropertyID);
        if (!node)
            return;
        *NumRefCollections = static_cast<LONG>(node->m_listCollections.size());
        if (*NumRefCollections > ListLength)
            return;
        std::ranges::transform(node->m_listCollections, RefCollections,
                               [](const auto& collection) { return collection.p; });
        *Success = VARIANT_TRUE;
    });
}

/// @param PropertyCollection  out, a reference for the caller; null for an unknown id
STDMETHODIMP CprpCollectionViewerCtrl::GetFirstRefPropCollection(LONG PropertyID,
                                                                 IqorPropertyCollection** PropertyCollection)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::GetFirstRefPropCollection"), [&](const Checks& require) {
        require.Pointer(PropertyCollection, OLESTR("ppIPropertyCollection"), InViewer());
        *PropertyCollection = nullptr;
        if (const CprpMultiplePropInfo* const node = m_treeProperties.Find(PropertyID))
            *PropertyCollection = CComPtr(node->m_listCollections.front()).Detach();
    });
}

/// Shown value of the selected row, empty when its collections disagree.
/// @param NetPropertyString  out, must come in null; the caller frees it. Null without a selection.
STDMETHODIMP CprpCollectionViewerCtrl::GetNetSelectedPropertyString(BSTR* NetPropertyString)
{
    constexpr const OLECHAR* kMethod = OLESTR("CprpCollectionViewerCtrl::GetNetSelectedPropertyString");
    return InFrame(kOrigin, kMethod, [&](const Checks& require) {
        require.Pointer(NetPropertyString, OLESTR("pbstrNetPropertyString"), InViewer());
        require.EmptyString(NetPropertyString, OLESTR("pbstrNetPropertyString"), InViewer());
        if (const CprpPropItem* const row = SelectedRow())
            *NetPropertyString = NewBstr(row->m_strData);
    });
}
