#include "list/prpInPlaceDropList.h"

#include "list/WindowIds.h"
#include "list/prpPropItem.h"
#include "list/qorODListBox.h"
#include "platform/win/Reflection.h"
#include "toolkit/FailureReport.h"

#include <utility>

bool CprpInPlaceDropList::CreateIn(CqorODListBox& list, const Rect& place)
{
    m_pListBox = &list;
    m_pItem = nullptr;
    m_bClosing = false;
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_NOINTEGRALHEIGHT;
    return Create({WC_COMBOBOXW, OLESTR(""), style, place, list.Handle(), kDropListId});
}

void CprpInPlaceDropList::SetFont(const LOGFONTW& font, bool redraw)
{
    FontOwner made(CreateFontIndirectW(&font));
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(made.Get()), redraw);
    m_font = std::move(made);
}

/// By whole text first: an entry that begins with another's text would else change the value on loss of focus.
void CprpInPlaceDropList::SelectText(const Text& text)
{
    const int entry = text.empty() ? -1 : FindWholeText(text);
    if (entry >= 0 || text.empty())
        SetCurSel(entry);
    else
        SelectPrefix(text);
}

Text CprpInPlaceDropList::SelectedText() const
{
    const int entry = GetCurSel();
    return entry >= 0 ? EntryText(entry) : Text();
}

WindowLifetime* CprpInPlaceDropList::Lifetime()
{
    return m_pListBox;
}

void CprpInPlaceDropList::OnException() noexcept
{
    ReportWindowFailure(m_pListBox ? m_pListBox->Handle() : nullptr);
}

void CprpInPlaceDropList::Close()
{
    if (!IsOpen())
        return;
    if (HasFocus() && m_pListBox->Exists())
        SetFocus(m_pListBox->Handle());
    if (m_nMessages == 0) {
        Destroy();
    } else if (Exists()) {
        m_bClosing = true;
        ShowWindow(Handle(), SW_HIDE);
    }
}

LRESULT CprpInPlaceDropList::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    struct Counted {
        explicit Counted(CprpInPlaceDropList& window) : list(window) { ++list.m_nMessages; }
        ~Counted()
        {
            if (--list.m_nMessages == 0 && std::exchange(list.m_bClosing, false))
                list.Destroy();
        }
        CprpInPlaceDropList& list;
    };
    const Counted counted(*this);
    return OnOwnMessage(message, wParam, lParam);
}

LRESULT CprpInPlaceDropList::OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND + kReflected: return OnNotification(HIWORD(wParam));
    case WM_KILLFOCUS:
        if (m_pItem)
            m_pItem->OnEditCommit();
        return CComboBox::OnMessage(message, wParam, lParam);
    case WM_DESTROY: {
        const LRESULT result = CComboBox::OnMessage(message, wParam, lParam);
        m_font.Reset();
        return result;
    }
    default: return CComboBox::OnMessage(message, wParam, lParam);
    }
}

LRESULT CprpInPlaceDropList::OnNotification(UINT code)
{
    if (code == CBN_SELENDOK && m_pItem)
        m_pItem->OnEditCommit();
    // The same code comes while the focus is on its way to another window; that is not taken back.
    else if (code == CBN_SELENDCANCEL && HasFocus())
        SetFocus(m_pListBox->Handle());
    return 0;
}
