// Font and colours that every row is measured and drawn with, and the colours that a row's state takes from them.
#pragma once

#include "platform/com/Ole.h"
#include "platform/draw/Canvas.h"
#include "platform/draw/Rect.h"

/// One block inside the list box; colours are 0x00BBGGRR, already translated from their OLE forms.
struct SqorLBDrawSettings {
    LOGFONTW m_lfFont{};
    COLORREF m_crBackground = 0;
    COLORREF m_crItemHighlight = 0;
    COLORREF m_crNormalText = 0;
    COLORREF m_crInvalidText = 0;
    COLORREF m_crInvalidDataItem = 0;
    COLORREF m_crHighlightedText = 0;
    COLORREF m_crGridLine = 0;
    COLORREF m_crInactiveItemHighlight = 0;
    COLORREF m_crInactiveHighlightedText = 0;
    COLORREF m_crReadOnlyData = 0;
};

static_assert(sizeof(LOGFONTW) == 92 && sizeof(SqorLBDrawSettings) == 132);

/// What a row gets to draw itself.
struct SqorLBDrawContext {
    HDC m_hDC = nullptr;
    const SqorLBDrawSettings* m_pSettings = nullptr;
    Rect m_rcName;
    Rect m_rcData;
    UINT m_nItemState = 0; ///< bit 0 is selected
    UINT m_nItemAction = 0;
    bool m_bListHasFocus = false; ///< false while an editor on the row has the focus
    bool m_bDraggingDivider = false;

    bool IsSelected() const { return (m_nItemState & 1) != 0; }
};

/// State of a row as far as it decides colours.
struct RowState {
    bool selected = false;
    bool listHasFocus = false;
    bool invalid = false;
    bool readOnly = false;
    bool allowEditing = true; ///< of the list
};

/// Colours of the name cell: the selection shows here alone, and pales while the focus is elsewhere.
constexpr TextColours NameColours(const RowState& state, const SqorLBDrawSettings& s)
{
    if (!state.selected)
        return {s.m_crNormalText, s.m_crBackground};
    return state.listHasFocus ? TextColours{s.m_crHighlightedText, s.m_crItemHighlight}
                              : TextColours{s.m_crInactiveHighlightedText, s.m_crInactiveItemHighlight};
}

/// Colours of the data cell. What cannot be edited is grey even when it is in error.
constexpr TextColours DataColours(const RowState& state, const SqorLBDrawSettings& s)
{
    if (state.readOnly || !state.allowEditing)
        return {s.m_crReadOnlyData, s.m_crBackground};
    return {state.invalid ? s.m_crInvalidText : s.m_crNormalText, s.m_crBackground};
}

/// Colours of an editor on the selected row, for rows that do not choose their own.
constexpr TextColours EditorColours(const RowState& state, const SqorLBDrawSettings& s)
{
    if (state.invalid)
        return {s.m_crInvalidText, s.m_crBackground};
    return {state.allowEditing ? s.m_crNormalText : s.m_crReadOnlyData, s.m_crBackground};
}
