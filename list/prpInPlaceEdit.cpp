#include "list/prpInPlaceEdit.h"

#include "list/PasteFilter.h"
#include "list/PropertyAccess.h"
#include "list/WindowIds.h"
#include "list/prpMultiplePropInfo.h"
#include "list/prpPropItem.h"
#include "list/qorODListBox.h"
#include "platform/win/Alerts.h"
#include "platform/win/Clipboard.h"
#include "platform/win/Reflection.h"
#include "toolkit/EditMessages.h"
#include "toolkit/FailureReport.h"

namespace {

constexpr const char* kSource = ".\\prpInPlaceEdit";

void Beep()
{
    CurrentAlerts().beep(MB_ICONEXCLAMATION);
}

} // namespace

bool CprpInPlaceEdit::CreateIn(CqorODListBox& list, const Rect& place, DWORD extraStyle)
{
    m_pListBox = &list;
    m_pItem = nullptr;
    const DWORD style = WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL | extraStyle;
    return Create({WC_EDITW, OLESTR(""), style, place, list.Handle(), kTextBoxId});
}

/// A font resets the margins.
void CprpInPlaceEdit::SetFont(const LOGFONTW& font, bool redraw)
{
    FontOwner made(CreateFontIndirectW(&font));
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(made.Get()), redraw);
    m_font = std::move(made);
    SetMargins(kListMetrics.editMargin, kListMetrics.editMargin);
}

WindowLifetime* CprpInPlaceEdit::Lifetime()
{
    return m_pListBox;
}

void CprpInPlaceEdit::OnException() noexcept
{
    ReportWindowFailure(m_pListBox ? m_pListBox->Handle() : nullptr);
}

LRESULT CprpInPlaceEdit::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CHAR: return OnCharacter(wParam, lParam);
    case WM_KEYDOWN: return OnKeyDown(wParam, lParam);
    case WM_PASTE: return OnPaste();
    case WM_SETFOCUS: {
        const LRESULT result = CqorNoIMEEdit::OnMessage(message, wParam, lParam);
        m_bCommitOnKillFocus = true;
        if (m_pItem)
            m_pItem->OnEditStart();
        return result;
    }
    case WM_KILLFOCUS: {
        const LRESULT result = CqorNoIMEEdit::OnMessage(message, wParam, lParam);
        if (m_pItem && m_bCommitOnKillFocus)
            m_pItem->OnEditCommit();
        return result;
    }
    case WM_COMMAND + kReflected:
        if (HIWORD(wParam) == EN_CHANGE && m_pItem) {
            m_bCommitOnKillFocus = true;
            m_pItem->OnEditChange();
        }
        return 0;
    case WM_DESTROY: {
        const LRESULT result = CqorNoIMEEdit::OnMessage(message, wParam, lParam);
        m_font.Reset();
        return result;
    }
    default:
        return RegisteredEditMessages().Has(message) ? CanAct(message)
                                                     : CqorNoIMEEdit::OnMessage(message, wParam, lParam);
    }
}

LRESULT CprpInPlaceEdit::OnCharacter(WPARAM wParam, LPARAM lParam)
{
    LimitText(TextLimitOf(m_eEditType));
    const auto character = static_cast<OLECHAR>(wParam);
    const auto [start, end] = GetSel();
    switch (ActionOfCharacter(m_eEditType, character, {start, end}, m_strInvalidChars)) {
    case KeyAction::PassOn: return CqorNoIMEEdit::OnMessage(WM_CHAR, wParam, lParam);
    case KeyAction::Beep: Beep(); return 0;
    case KeyAction::ToggleSign: ToggleSignOfText(); return 0;
    case KeyAction::ConvertUnit: ConvertUnit(character); return 0;
    case KeyAction::Drop: break;
    }
    return 0;
}

/// Return and Escape decide at once; the loss of focus that follows must not commit a second time.
LRESULT CprpInPlaceEdit::OnKeyDown(WPARAM wParam, LPARAM lParam)
{
    if (!m_pItem || (wParam != VK_RETURN && wParam != VK_ESCAPE))
        return CqorNoIMEEdit::OnMessage(WM_KEYDOWN, wParam, lParam);
    m_bCommitOnKillFocus = false;
    if (wParam == VK_RETURN)
        m_pItem->OnEditCommit();
    else
        m_pItem->OnEditCancel();
    return 0;
}

void CprpInPlaceEdit::ToggleSignOfText()
{
    const auto [start, end] = GetSel();
    const EditedText edited = ToggleSign(WindowText(), {start, end});
    PutText(edited.text);
    SetSel(edited.selection.start, edited.selection.end);
    ScrollCaret();
}

/// Converts the value of the property, not the text, in the first collection alone, without an event: the edit
/// stays open, and the commit brings the other collections up to date.
void CprpInPlaceEdit::ConvertUnit(OLECHAR character)
{
    constexpr unsigned kNoInfoLine = 400;
    constexpr unsigned kNoCollectionLine = 411;
    const std::optional<UnitKey> key = UnitKeyOf(character);
    if (!m_pItem || !key)
        return;
    const CprpMultiplePropInfo* const info = m_pItem->m_pPropInfo;
    if (!info)
        ThrowInternal(CallSite{kSource, kNoInfoLine});
    if (info->m_listCollections.empty())
        ThrowInternal(CallSite{kSource, kNoCollectionLine});
    if (info->m_eDataType == E_PROP_DT_ANGLE)
        return;

    const CComPtr<IqorPropertyCollection> collection = info->m_listCollections.front();
    const LONG id = info->m_nPropertyID;
    EprpPropError error = E_PROP_ERROR_NONE;
    double value = 0;
    const bool found = WithProperty(*collection, id, AtEnd::DropEvents,
                                    [&](IqorProperty& property) { Must(property.GetPropertyDouble(&error, &value)); });
    if (!found || error != E_PROP_ERROR_NONE || !key->ActsOn(value))
        return;
    const double converted = value * key->factor;
    PutText(UnitKeyText(converted));
    WithProperty(*collection, id, AtEnd::DropEvents,
                 [&](IqorProperty& property) { Must(property.SetPropertyDouble(converted, &error)); });
}

LRESULT CprpInPlaceEdit::OnPaste()
{
    constexpr LRESULT kNotOpened = 0;
    constexpr LRESULT kDone = 1;
    LimitText(TextLimitOf(m_eEditType));
    std::optional<Text> wide;
    std::optional<Text> narrow;
    {
        const ClipboardReader clipboard(Handle());
        if (!clipboard.IsOpen())
            return kNotOpened;
        wide = clipboard.WideText();
        if (!wide)
            narrow = clipboard.NarrowText();
    }
    if (wide && m_eEditType == EditType::UnicodeString)
        Paste(*wide);
    else if (const std::optional<Text>& text = wide ? wide : narrow) {
        const Text filtered = FilterPaste(*text);
        if (filtered.empty())
            Beep();
        else
            Paste(filtered);
    }
    return kDone;
}

void CprpInPlaceEdit::Paste(const Text& text)
{
    if ((GetWindowLongPtrW(Handle(), GWL_STYLE) & ES_READONLY) == 0)
        ReplaceSel(text, true);
}

LRESULT CprpInPlaceEdit::CanAct(UINT message) const
{
    if (message == RegisteredEditMessages().canPaste)
        return IsClipboardFormatAvailable(CF_TEXT) ? kCanAct : kCannotAct;
    const auto [start, end] = GetSel();
    return start != end ? kCanAct : kCannotAct;
}
