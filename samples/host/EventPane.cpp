#include "samples/host/EventPane.h"

#include <commctrl.h>

namespace {

struct Column {
    const wchar_t* heading;
    int share; ///< of the pane's width, in hundredths
    lumevor::Text EventLine::*text;
};

constexpr Column kColumns[] = {
    {L"Event", 12, &EventLine::what},    {L"Id", 11, &EventLine::id},       {L"Property", 27, &EventLine::name},
    {L"Before", 18, &EventLine::before}, {L"After", 32, &EventLine::after},
};

} // namespace

EventPane::EventPane(HWND parent, UINT id, const EventLog& log)
    : m_log(log), m_window(CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"Events",
                                           WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA |
                                               LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                                           0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)),
                                           GetModuleHandleW(nullptr), nullptr))
{
    ListView_SetExtendedListViewStyle(m_window, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_INFOTIP);
    int index = 0;
    for (const Column& column : kColumns) {
        LVCOLUMNW heading{};
        heading.mask = LVCF_TEXT | LVCF_SUBITEM;
        heading.iSubItem = index;
        heading.pszText = const_cast<wchar_t*>(column.heading);
        SendMessageW(m_window, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index++), reinterpret_cast<LPARAM>(&heading));
    }
}

void EventPane::Place(const Rect& place)
{
    MoveWindow(m_window, place.left, place.top, place.Width(), place.Height(), TRUE);
    SetWidths(place.Width() - GetSystemMetrics(SM_CXVSCROLL) - 2 * GetSystemMetrics(SM_CXEDGE));
}

void EventPane::SetWidths(int width) const
{
    int index = 0;
    for (const Column& column : kColumns)
        ListView_SetColumnWidth(m_window, index++, width * column.share / 100);
}

void EventPane::ShowNewest()
{
    const int count = static_cast<int>(m_log.Size());
    ListView_SetItemCountEx(m_window, count, LVSICF_NOSCROLL);
    if (count > 0)
        ListView_EnsureVisible(m_window, count - 1, FALSE);
}

bool EventPane::OnNotify(NMHDR& notification) const
{
    if (notification.hwndFrom != m_window || notification.code != LVN_GETDISPINFOW)
        return false;
    LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(notification).item;
    const bool isText = (item.mask & LVIF_TEXT) != 0;
    if (isText && item.iItem >= 0 && static_cast<std::size_t>(item.iItem) < m_log.Size())
        lstrcpynW(item.pszText, (m_log[static_cast<std::size_t>(item.iItem)].*kColumns[item.iSubItem].text).c_str(),
                  item.cchTextMax);
    return true;
}
