// Measuring and painting of the list: fonts, row heights, columns, the indent column, what no row covers.
#include "list/qorODListBox.h"

#include "list/RowPaint.h"
#include "list/WindowIds.h"
#include "platform/win/GdiCanvas.h"
#include "platform/win/Rectangles.h"

#include <algorithm>

RowColumns CqorODListBox::ColumnsOf(const CqorLBItem& item) const
{
    return {m_eListType, m_nRowUnit, m_nDividerPos, item.Level(), m_bSingleLevelIndent};
}

RowRects CqorODListBox::RectsOf(int row) const
{
    const CqorLBItem* const item = ItemAt(row);
    return item ? SplitRow(RowRect(row), ColumnsOf(*item)) : RowRects{};
}

void CqorODListBox::SetListFont(const LOGFONTW& font)
{
    m_settings.m_lfFont = font;
    FontOwner made(CreateFontIndirectW(&font));
    if (m_dcMeasure)
        SelectObject(m_dcMeasure.Get(), made.Get());
    m_fontList = std::move(made);
    m_fontBold.Reset();
    m_nTextHeight = m_nTextBoxHeight = m_nDropListHeight = 0;
    ++m_nFontGeneration;
}

HFONT CqorODListBox::BoldFont()
{
    if (!m_fontBold) {
        LOGFONTW bold = m_settings.m_lfFont;
        bold.lfWeight = FW_BOLD;
        m_fontBold.Reset(CreateFontIndirectW(&bold));
    }
    return m_fontBold.Get();
}

HDC CqorODListBox::MeasuringDc()
{
    if (!m_dcMeasure) {
        m_dcMeasure.Reset(CreateCompatibleDC(nullptr));
        if (m_fontList)
            SelectObject(m_dcMeasure.Get(), m_fontList.Get());
    }
    return m_dcMeasure.Get();
}

int CqorODListBox::TextHeight()
{
    if (m_nTextHeight == 0)
        m_nTextHeight = TextExtent(MeasuringDc(), OLESTR("S")).cy;
    return m_nTextHeight;
}

namespace {

/// Height that a window has after it was made with another; the window lives for the question only.
int HeightOf(const ChildWindow& window, HFONT font)
{
    SubclassedWindow probe;
    if (!probe.Create(window))
        return window.place.Height();
    probe.Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    const int height = WindowRectOf(probe.Handle()).Height();
    probe.Destroy();
    return height;
}

} // namespace

int CqorODListBox::TextBoxHeight(int proposed)
{
    if (m_nTextBoxHeight == 0)
        m_nTextBoxHeight = HeightOf({WC_EDITW, OLESTR(""), WS_CHILD | ES_AUTOHSCROLL,
                                     Rect{0, 0, kListMetrics.measuredEditWidth, proposed}, Handle(), kTextBoxId},
                                    ListFont());
    return m_nTextBoxHeight;
}

int CqorODListBox::DropListHeight(int proposed)
{
    if (m_nDropListHeight == 0)
        m_nDropListHeight = HeightOf({WC_COMBOBOXW, OLESTR(""), WS_CHILD | CBS_DROPDOWNLIST | CBS_NOINTEGRALHEIGHT,
                                      Rect{1, 0, kListMetrics.measuredEditWidth, proposed}, Handle(), kDropListId},
                                     ListFont());
    return m_nDropListHeight;
}

LRESULT CqorODListBox::OnMeasureItem(MEASUREITEMSTRUCT& measure)
{
    if (auto* const item = reinterpret_cast<CqorLBItem*>(measure.itemData))
        measure.itemHeight =
            static_cast<UINT>(std::clamp(item->MeasureItem(m_settings, MeasuringDc()), 0, kListMetrics.highestRow));
    return TRUE;
}

void CqorODListBox::MeasureAllRows()
{
    const BusyScope busy(*this);
    const RedrawHold hold(*this);
    for (int row = 0; row < RowCount(); ++row) {
        const int height = ItemAt(row)->MeasureItem(m_settings, MeasuringDc());
        SetRowHeight(row, std::clamp(height, 0, kListMetrics.highestRow));
    }
}

void CqorODListBox::AutoFitDivider()
{
    if (!IsPropertyList())
        return;
    int widest = 0;
    for (int row = 0; row < RowCount(); ++row) {
        CqorLBItem& item = *ItemAt(row);
        const int left = SplitRow({}, ColumnsOf(item)).name.left;
        widest = std::max(widest, left + item.GetNameWidth(MeasuringDc(), m_settings));
    }
    m_nDividerPos = widest;
    Invalidate(true);
}

void CqorODListBox::SetImageList(HIMAGELIST list)
{
    if (list)
        m_pImageList = list;
}

void CqorODListBox::SetWarningPrefix(TextView text)
{
    if (!text.empty())
        m_strWarningPrefix = text;
}

void CqorODListBox::SetBackground(COLORREF colour)
{
    m_settings.m_crBackground = colour;
    m_brBackground.Reset();
}

HBRUSH CqorODListBox::BackgroundBrush()
{
    if (!m_brBackground)
        m_brBackground.Reset(CreateSolidBrush(m_settings.m_crBackground));
    return m_brBackground.Get();
}

LRESULT CqorODListBox::OnPaint(UINT message, WPARAM wParam, LPARAM lParam)
{
    m_bPainting = true;
    m_bFocusInPaint = HasFocus();
    const LRESULT result = Default(message, wParam, lParam);
    m_bPainting = false;
    return result;
}

/// Draws one row. Nothing of the item is touched after its Draw, which may end in calls to hosts.
LRESULT CqorODListBox::OnDrawItem(const DRAWITEMSTRUCT& draw)
{
    const int row = static_cast<int>(draw.itemID);
    CqorLBItem* const item = ItemAt(row);
    if (!item || reinterpret_cast<const CqorLBItem*>(draw.itemData) != item)
        return TRUE;
    const SelectionScope font(draw.hDC, ListFont());
    const RowRects rects = SplitRow(FromPlatform(draw.rcItem), ColumnsOf(*item));

    SqorLBDrawContext context;
    context.m_hDC = draw.hDC;
    context.m_pSettings = &m_settings;
    context.m_rcName = rects.name;
    context.m_rcData = rects.data;
    context.m_nItemState = draw.itemState;
    context.m_nItemAction = draw.itemAction;
    context.m_bListHasFocus = m_bPainting ? m_bFocusInPaint : HasFocus();
    context.m_bDraggingDivider = m_bDividerDrag;

    PaintIndent(draw.hDC, rects.indent, *item, row);
    item->Draw(context);
    return TRUE;
}

void CqorODListBox::PaintIndent(HDC dc, const Rect& indent, const CqorLBItem& item, int row)
{
    IndentLook look;
    look.unit = m_nRowUnit;
    look.hasChildren = item.HasChildren();
    look.collapsed = item.m_bCollapsed;
    if (!look.hasChildren || look.collapsed) { // an expanded box shows no states
        look.invalid = item.IsInvalid();
        look.warning = item.IsInWarning();
        look.childInvalid = item.HasInvalidChild();
    }
    Connectors connectors;
    if (IsTreeList()) {
        connectors = ConnectorsOf(item, row);
        look.connectors = &connectors;
    }
    GdiCanvas canvas(dc, m_pImageList);
    PaintIndentColumn(canvas, indent, &look, m_settings);
}

/// Rows paint themselves; only what no row covers is left.
LRESULT CqorODListBox::OnEraseBackground(HDC dc)
{
    Rect bare = ClientRect();
    if (RowCount() > 0)
        bare.top = RowRect(RowCount() - 1).bottom;
    if (bare.top < bare.bottom) {
        const RECT area = ToPlatform(bare);
        FillRect(dc, &area, BackgroundBrush());
    }
    return 1;
}

/// Colours of the editors on the selected row.
LRESULT CqorODListBox::OnControlColour(UINT message, HDC dc, HWND window)
{
    const auto brush = reinterpret_cast<LRESULT>(BackgroundBrush());
    if (!IsPropertyList())
        return brush;
    CqorLBItem* const item = SelectedItem();
    SetBkColor(dc, m_settings.m_crBackground);
    if (item && item->OnCtlColor(dc, window, message - WM_CTLCOLORMSGBOX, m_settings))
        return brush;
    RowState state;
    state.invalid = item && item->IsInvalid();
    state.allowEditing = m_bAllowEditing;
    const TextColours colours = EditorColours(state, m_settings);
    SetTextColor(dc, colours.text);
    SetBkColor(dc, colours.ground);
    return brush;
}
