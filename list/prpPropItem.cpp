// Painting, editor windows and writing of a row; reading is told in prpPropItemRefresh.cpp.
#include "list/prpPropItem.h"

#include "frame/TextTools.h"
#include "list/MultiEditScope.h"
#include "list/PropertyAccess.h"
#include "list/RowPaint.h"
#include "list/WindowIds.h"
#include "list/qorODListBox.h"
#include "platform/win/GdiCanvas.h"
#include "platform/win/Rectangles.h"

CprpPropItem::CprpPropItem(GridHost* pViewer, CqorODListBox* pListBox, CqorLBItem* pParent)
    : CqorLBItem(pListBox, pParent), m_pViewer(pViewer), m_bShowHelpTooltip(pListBox->m_bShowHelpTooltips)
{
}

CprpPropItem::~CprpPropItem()
{
    m_edit.SetItem(nullptr);
    m_edit.Destroy();
    m_btnExtended.Destroy();
}

RowState CprpPropItem::StateFor(const SqorLBDrawContext& context) const
{
    return {context.IsSelected(), context.m_bListHasFocus, IsInvalid(), m_bReadOnly, m_pListBox->m_bAllowEditing};
}

void CprpPropItem::Draw(const SqorLBDrawContext& context)
{
    GdiCanvas canvas(context.m_hDC);
    PaintRowGround(canvas, context.m_rcName, context.m_rcData, StateFor(context), *context.m_pSettings);
}

void CprpPropItem::DrawPreface(const SqorLBDrawContext& context)
{
    const GdiCanvas colours(context.m_hDC); // reads the colours and puts them back
}

void CprpPropItem::DrawName(const SqorLBDrawContext& context)
{
    GdiCanvas canvas(context.m_hDC);
    PaintName(canvas, context.m_rcName, m_strName, StateFor(context), *context.m_pSettings);
}

void CprpPropItem::DrawData(const SqorLBDrawContext& context)
{
    GdiCanvas canvas(context.m_hDC);
    PaintData(canvas, context.m_rcData, m_strData, VerticalPlace::Top, StateFor(context), *context.m_pSettings);
}

int CprpPropItem::MeasureItem(const SqorLBDrawSettings&, HDC)
{
    return RowHeightFor(m_pListBox->TextHeight());
}

int CprpPropItem::GetNameWidth(HDC hDC, const SqorLBDrawSettings&)
{
    return TextExtent(hDC, m_strName).cx + kListMetrics.namePadding;
}

int CprpPropItem::GetDataWidth(HDC hDC, const SqorLBDrawSettings&)
{
    return TextExtent(hDC, m_strData).cx + kListMetrics.dataPadding;
}

void CprpPropItem::OnExtendedButton()
{
    if (m_pViewer)
        m_pViewer->FireExtendedInfoButtonClicked(*this);
}

bool CprpPropItem::ShowsEditors(const SqorLBDrawContext& context) const
{
    return m_pListBox->m_bAllowEditing && !m_bReadOnly && context.IsSelected() && !context.m_bDraggingDivider;
}

void CprpPropItem::PlaceEditors(const SqorLBDrawContext& context, EditType type, DWORD extraStyle)
{
    const RowDisplay::BusyScope busy(*m_pListBox); // closing an editor may take this row away
    const Rect data = context.m_rcData;
    const bool editing = ShowsEditors(context);
    const bool button = editing && m_bShowExtendedButton;
    if (editing && m_bEditable)
        PlaceTextBox(LeftOfButton(data, button), type, extraStyle);
    else
        CloseEditor(m_edit);
    if (!IsRetired())
        PlaceButton(data, button);
}

void CprpPropItem::PlaceButton(const Rect& data, bool wanted)
{
    if (!wanted) {
        CloseEditor(m_btnExtended);
        return;
    }
    const Rect place = ButtonPlace(data);
    if (!m_btnExtended.Exists()) {
        const ChildWindow window{WC_BUTTONW, OLESTR("..."),        WS_CHILD | WS_VISIBLE,
                                 place,      m_pListBox->Handle(), kButtonId};
        if (!m_btnExtended.Create(window))
            return;
        m_btnExtended.SetTarget(this);
        m_btnExtended.SetLifetime(m_pListBox);
        m_nButtonFont = 0;
    } else if (place != m_rcButton) {
        MoveWindow(m_btnExtended.Handle(), place.left, place.top, place.Width(), place.Height(), FALSE);
        m_btnExtended.Invalidate(true);
    }
    m_rcButton = place;
    if (m_nButtonFont != m_pListBox->FontGeneration()) {
        m_nButtonFont = m_pListBox->FontGeneration();
        m_btnExtended.SetFont(m_pListBox->m_settings.m_lfFont, false);
    }
}

void CprpPropItem::PlaceTextBox(const Rect& cell, EditType type, DWORD extraStyle)
{
    const Rect place = TextBoxPlace(cell, m_pListBox->TextHeight());
    const bool isNew = !m_edit.Exists();
    if (isNew) {
        if (!m_edit.CreateIn(*m_pListBox, place, extraStyle))
            return;
        m_nTextBoxFont = 0;
    } else if (place != m_rcTextBox) {
        MoveWindow(m_edit.Handle(), place.left, place.top, place.Width(), place.Height(), FALSE);
        m_edit.Invalidate(true);
    }
    m_rcTextBox = place;
    if (m_nTextBoxFont != m_pListBox->FontGeneration()) {
        m_nTextBoxFont = m_pListBox->FontGeneration();
        m_edit.SetFont(m_pListBox->m_settings.m_lfFont, false);
    }
    // While the text box has the focus, what the user types wins.
    if (isNew || (!m_edit.HasFocus() && !EqualsIgnoringCase(m_edit.WindowText(), m_strData)))
        m_edit.PutText(m_strData);
    m_edit.SetEditType(type);
    m_edit.SetInvalidChars(m_strInvalidChars);
    m_edit.SetItem(this);
}

void CprpPropItem::FocusList() const
{
    if (m_pListBox->Exists())
        SetFocus(m_pListBox->Handle());
}

void CprpPropItem::CloseEditor(SubclassedWindow& window)
{
    if (!window.Exists())
        return;
    const RowDisplay::BusyScope busy(*m_pListBox);
    if (window.HasFocus())
        FocusList();
    window.Destroy();
}

void CprpPropItem::EndEdit(bool commit)
{
    const RowDisplay::BusyScope busy(*m_pListBox);
    for (SubclassedWindow* window : std::initializer_list<SubclassedWindow*>{&m_edit, &m_btnExtended}) {
        if (window->Exists() && !commit)
            window->Send(WM_KEYDOWN, VK_ESCAPE);
        CloseEditor(*window);
    }
}

void CprpPropItem::AbandonEditors() noexcept
{
    m_edit.SetItem(nullptr);
    CloseEditor(m_edit);
    CloseEditor(m_btnExtended);
    m_pPropInfo = nullptr; // the node may go before the row does
}

void CprpPropItem::EditTextBox()
{
    if (m_bReadOnly)
        return;
    if (m_bEditable && m_edit.Exists()) {
        m_edit.EmptyUndoBuffer();
        SetFocus(m_edit.Handle());
        if (m_edit.Exists())
            m_edit.SetSel(0, -1);
    } else if (m_bShowExtendedButton) {
        OnExtendedButton();
    }
}

void CprpPropItem::WriteToAll(const std::function<void(IqorProperty&)>& write)
{
    // Copies: a host may clear the control in any of the events, and the value goes to all collections all the same.
    const WindowLifetimeScope kept(m_pListBox);
    CqorODListBox& list = *m_pListBox;
    GridHost* const viewer = m_pViewer;
    const auto collections = PropInfo().m_listCollections;
    const LONG id = PropInfo().m_nPropertyID;
    {
        const CursorScope wait(list.m_hCursorWait, [&list] { return list.m_hClassCursor; });
        const MultiEditScope announced(viewer);
        for (const auto& collection : collections)
            WithProperty(*collection, id, AtEnd::FireEvents, write);
    }
    if (!IsRetired() && m_edit.HasFocus())
        FocusList();
}
