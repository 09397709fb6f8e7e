#include "benchmarks/windows/BareList.h"

#include <charconv>

namespace {

constexpr int kRowHeight = 16;
constexpr int kIndent = 15;
constexpr int kDivider = 100;
constexpr int kTopRowStep = 1000; // the list box adds up heights from the top row on: it moves along
constexpr int kTopRowFrom = 1500;

void FillRectangle(HDC dc, const RECT& area, COLORREF colour)
{
    SetBkColor(dc, colour);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
}

} // namespace

BareList::BareList(const GridData& data)
    : m_rows(data.Rows()), m_changing(data.Changing()),
      m_parent(
          [this](UINT message, WPARAM, LPARAM lParam, LRESULT& answer) { return OnMessage(message, lParam, answer); })
{
    const LOGFONTW font = GridFont();
    m_font = CreateFontIndirectW(&font);
    m_list = CreateWindowW(L"ListBox", L"", kGridStyle, 0, 0, kGridWidth, kGridHeight, m_parent.Handle(),
                           reinterpret_cast<HMENU>(UINT_PTR{kGridId}), nullptr, nullptr);
}

BareList::~BareList()
{
    DestroyWindow(m_list);
    DeleteObject(m_font);
}

void BareList::Fill()
{
    SendMessageW(m_list, WM_SETREDRAW, FALSE, 0);
    const int count = static_cast<int>(m_rows.size());
    for (int row = 0; row < count; ++row) {
        SendMessageW(m_list, LB_INSERTSTRING, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&m_rows[static_cast<std::size_t>(row)]));
        if (row >= kTopRowFrom && row % kTopRowStep == 0)
            SendMessageW(m_list, LB_SETTOPINDEX, static_cast<WPARAM>(row), 0);
    }
    if (count > kTopRowFrom)
        SendMessageW(m_list, LB_SETTOPINDEX, 0, 0);
    SendMessageW(m_list, WM_SETREDRAW, TRUE, 0);
    Repaint();
}

void BareList::Change(double start)
{
    SendMessageW(m_list, WM_SETREDRAW, FALSE, 0);
    for (const std::size_t row : m_changing) {
        char text[32];
        m_rows[row].data.assign(text, std::to_chars(text, text + sizeof text, start).ptr);
        start += 1.25;
    }
    SendMessageW(m_list, WM_SETREDRAW, TRUE, 0);
    Repaint();
}

bool BareList::OnMessage(UINT message, LPARAM lParam, LRESULT& answer)
{
    answer = TRUE;
    if (message == WM_MEASUREITEM)
        reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight = kRowHeight;
    else if (message == WM_DRAWITEM)
        Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    else
        return false;
    return true;
}

/// Ground and text in one call each, then the two lines and the box of a category.
void BareList::Draw(const DRAWITEMSTRUCT& item) const
{
    if (item.itemID == static_cast<UINT>(-1))
        return;
    const auto& row = *reinterpret_cast<const GridRow*>(item.itemData);
    const HGDIOBJ before = SelectObject(item.hDC, m_font);
    RECT name = item.rcItem;
    RECT data = item.rcItem;
    name.right = data.left = kDivider;
    SetTextColor(item.hDC, 0);
    SetBkColor(item.hDC, 0xFFFFFF);
    ExtTextOutW(item.hDC, kIndent + 5, name.top + 2, ETO_OPAQUE | ETO_CLIPPED, &name, row.name.c_str(),
                static_cast<UINT>(row.name.size()), nullptr);
    ExtTextOutW(item.hDC, kDivider + 5, data.top + 1, ETO_OPAQUE | ETO_CLIPPED, &data, row.data.c_str(),
                row.isCategory ? 0 : static_cast<UINT>(row.data.size()), nullptr);
    const LONG top = item.rcItem.top;
    FillRectangle(item.hDC, {kIndent, item.rcItem.bottom - 1, item.rcItem.right, item.rcItem.bottom}, 0xC0C0C0);
    FillRectangle(item.hDC, {kDivider, top, kDivider + 1, item.rcItem.bottom}, 0xC0C0C0);
    if (row.isCategory) {
        const RECT box{3, top + 4, 12, top + 13};
        FrameRect(item.hDC, &box, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
        FillRectangle(item.hDC, {5, top + 8, 10, top + 9}, 0);
    }
    SelectObject(item.hDC, before);
}
