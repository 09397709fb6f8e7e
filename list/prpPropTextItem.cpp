#include "list/prpPropTextItem.h"

#include "list/GridMessages.h"
#include "list/PropertyAccess.h"
#include "list/qorODListBox.h"

void CprpPropTextItem::Draw(const SqorLBDrawContext& context)
{
    CprpPropItem::Draw(context);
    DrawName(context);
    DrawData(context);
    PlaceEditors(context, TypeOfTextBox(), StyleOfTextBox());
}

/// As high as a text box of the base height really is.
int CprpPropTextItem::MeasureItem(const SqorLBDrawSettings& settings, HDC hDC)
{
    return m_pListBox->TextBoxHeight(CprpPropItem::MeasureItem(settings, hDC));
}

void CprpPropTextItem::Edit(const Rect&, const Rect&, const Rect&)
{
    EditTextBox();
}

Text CprpPropTextItem::ReadData(IqorProperty& property) const
{
    return TextFrom([&](BSTR* text) { return property.GetPropertyString(text); });
}

void CprpPropTextItem::ReadValue(IqorProperty& property, bool isFirst)
{
    KeepIfAllAgree(m_strData, ReadData(property), isFirst);
}

void CprpPropTextItem::Refresh()
{
    CprpPropItem::Refresh();
    if (m_edit.Exists() && !m_edit.HasFocus() && !IsUnchanged(m_edit.WindowText()))
        m_edit.PutText(m_strData);
}

void CprpPropTextItem::OnEditStart()
{
    SendMessageW(m_pListBox->Parent(), kEditStartMessage, 0, 0);
}

void CprpPropTextItem::OnEditCancel()
{
    FocusList();
}

void CprpPropTextItem::OnEditCommit()
{
    const WindowLifetimeScope kept(m_pListBox);
    SendMessageW(m_pListBox->Parent(), kEditEndMessage, 0, 0);
    if (IsRetired() || !m_edit.Exists())
        return;
    const Text typed = m_edit.WindowText();
    m_edit.EmptyUndoBuffer();
    if (IsUnchanged(typed)) { // ahead of any parse: an untouched empty cell writes nothing
        if (m_edit.HasFocus())
            FocusList();
        return;
    }
    m_strData = TextToCommit(typed);
    const CComBSTR text(m_strData);
    WriteToAll([&](IqorProperty& property) { Must(property.SetPropertyString(text)); });
}
