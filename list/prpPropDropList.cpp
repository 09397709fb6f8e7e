#include "list/prpPropDropList.h"

#include "frame/TextTools.h"
#include "list/PropertyAccess.h"
#include "list/RowPaint.h"
#include "list/qorODListBox.h"
#include "platform/win/GdiCanvas.h"
#include "platform/win/Rectangles.h"

CprpPropDropList::~CprpPropDropList()
{
    m_comboList.SetItem(nullptr);
    m_comboList.Destroy();
}

void CprpPropDropList::Draw(const SqorLBDrawContext& context)
{
    CprpPropItem::Draw(context);
    DrawName(context);
    DrawData(context);

    const RowDisplay::BusyScope busy(*m_pListBox); // closing an editor may take this row away
    const Rect data = context.m_rcData;
    const bool editing = ShowsEditors(context);
    const bool button = editing && m_bShowExtendedButton;
    if (editing && m_bEditable)
        PlaceDropList(data, button);
    else
        m_comboList.Close();
    if (!IsRetired())
        PlaceButton(data, button);
}

void CprpPropDropList::DrawData(const SqorLBDrawContext& context)
{
    GdiCanvas canvas(context.m_hDC);
    PaintData(canvas, context.m_rcData, m_strData, VerticalPlace::Centre, StateFor(context), *context.m_pSettings);
}

int CprpPropDropList::MeasureItem(const SqorLBDrawSettings& settings, HDC hDC)
{
    return m_pListBox->DropListHeight(CprpPropItem::MeasureItem(settings, hDC)) + 1;
}

void CprpPropDropList::PlaceDropList(const Rect& data, bool button)
{
    const Rect place = DropListPlace(data, button);
    if (m_comboList.Exists() && !m_comboList.IsOpen())
        return; // on its way out; the next painting makes another
    if (!m_comboList.Exists()) {
        if (!m_comboList.CreateIn(*m_pListBox, place))
            return;
        m_nDropListFont = m_pListBox->FontGeneration();
        m_comboList.SetFont(m_pListBox->m_settings.m_lfFont, false);
        Fill();
        m_comboList.SelectText(m_strData);
        m_comboList.SetItem(this);
    } else if (place != m_rcDropList) {
        MoveWindow(m_comboList.Handle(), place.left, place.top, place.Width(), place.Height(), TRUE);
        if (m_comboList.SelectedText() != m_strData)
            m_comboList.SelectText(m_strData);
    }
    m_rcDropList = place;
    if (m_nDropListFont != m_pListBox->FontGeneration()) {
        m_nDropListFont = m_pListBox->FontGeneration();
        m_comboList.SetFont(m_pListBox->m_settings.m_lfFont, true);
    }
}

/// The entries of the first collection that are shown. An entry without a text ends the walk.
void CprpPropDropList::Fill()
{
    m_comboList.ResetContent();
    WithProperty(FirstCollection(), PropInfo().m_nPropertyID, AtEnd::DropEvents, [&](IqorProperty& property) {
        for (LONG index = 0;; ++index) {
            LONG value = -1;
            const Text text =
                TextFrom([&](BSTR* out) { return property.GetEnumByIndex(&index, &value, out, VARIANT_FALSE); });
            if (value == -1 || text.empty())
                return;
            m_comboList.SetItemData(m_comboList.AddString(text), value);
        }
    });
}

void CprpPropDropList::Edit(const Rect&, const Rect&, const Rect&)
{
    if (m_bReadOnly)
        return;
    if (m_comboList.Exists()) {
        SetFocus(m_comboList.Handle());
        if (!m_comboList.Exists())
            return;
        m_comboList.SelectText(m_strData);
        m_comboList.ShowDropDown(true);
    } else if (m_bShowExtendedButton) {
        OnExtendedButton();
    }
}

void CprpPropDropList::EndEdit(bool)
{
    const RowDisplay::BusyScope busy(*m_pListBox);
    m_comboList.Close();
    CloseEditor(m_btnExtended);
}

void CprpPropDropList::AbandonEditors() noexcept
{
    m_comboList.SetItem(nullptr);
    m_comboList.Close();
    CprpPropItem::AbandonEditors();
}

/// Display text of a value; empty for a value without an entry.
Text CprpPropDropList::TextOf(IqorProperty& property, LONG value)
{
    SprpEnumItem item{};
    item.eEnumValue = value;
    VARIANT_BOOL success = VARIANT_FALSE;
    return TextFrom([&](BSTR* text) { return property.GetEnumInfo(&item, text, &success); });
}

void CprpPropDropList::Refresh()
{
    CprpPropItem::Refresh();
    if (m_comboList.Exists())
        m_comboList.SelectText(m_strData); // no entry for collections that differ
}

void CprpPropDropList::ReadValue(IqorProperty& property, bool isFirst)
{
    EprpPropError error = E_PROP_ERROR_NONE;
    LONG value = 0;
    Must(property.GetPropertyLong(&error, &value));
    if (isFirst) {
        m_nFirstValue = value;
        m_strData = TextOf(property, value);
    } else if (value != m_nFirstValue) {
        m_strData.clear();
    }
}

/// Of a row in error only the closed field is coloured so; its opened list is not.
bool CprpPropDropList::OnCtlColor(HDC hDC, HWND hWnd, UINT, const SqorLBDrawSettings& settings)
{
    COLORREF text = m_bReadOnly ? settings.m_crReadOnlyData : settings.m_crNormalText;
    if (IsInvalid()) {
        const bool isOpenedList = m_comboList.IsDroppedDown() && hWnd != m_comboList.Handle();
        text = isOpenedList ? settings.m_crNormalText : settings.m_crInvalidText;
    }
    SetTextColor(hDC, text);
    SetBkColor(hDC, settings.m_crBackground);
    return true;
}

void CprpPropDropList::OnEditCommit()
{
    const int entry = m_comboList.Exists() ? m_comboList.GetCurSel() : -1;
    if (entry < 0)
        return;
    const Text text = m_comboList.EntryText(entry);
    if (EqualsIgnoringCase(text, m_strData))
        return;
    const WindowLifetimeScope kept(m_pListBox);
    m_strData = text; // first, so that the loss of focus that follows a choice finds nothing to commit
    const auto value = static_cast<LONG>(m_comboList.GetItemData(entry));
    WriteToAll([&](IqorProperty& property) {
        EprpPropError error = E_PROP_ERROR_NONE;
        Must(property.SetPropertyLong(value, &error));
    });
    if (!IsRetired())
        FocusList();
}
