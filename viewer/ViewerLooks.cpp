// Colours, styles, flags and font of the viewer. Each is stored as given; what the list needs follows when there is
// a window, and all of it when one is made.
#include "viewer/prpCollectionViewerCtrl.h"

#include "control/OleColour.h"
#include "core/VariantBool.h"
#include "viewer/ViewerSource.h"

void CprpCollectionViewerCtrl::InvalidateList(bool erase)
{
    if (m_listBox.Exists())
        m_listBox.Invalidate(erase);
    if (ControlWindow())
        InvalidateRect(ControlWindow(), nullptr, erase);
    else
        ViewChanged();
}

// Font and window

/// Takes a font over; the rows are measured anew.
/// @param Font  null stands for the viewer's own font
STDMETHODIMP CprpCollectionViewerCtrl::putref_Font(IFontDisp* Font)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::putref_Font"), [&](const Checks&) {
        m_spFont = Font;
        SetDirty();
        if (!m_listBox.Exists())
            return;
        ApplyFont();
        m_listBox.MeasureAllRows();
        RedrawAll();
    });
}

STDMETHODIMP CprpCollectionViewerCtrl::get_Font(IFontDisp** Font)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::get_Font"), [&](const Checks& require) {
        require.Pointer(Font, OLESTR("ppFont"), InViewer());
        *Font = CComPtr<IFontDisp>(m_spFont).Detach();
    });
}

/// Window of the list; 0 before there is one.
STDMETHODIMP CprpCollectionViewerCtrl::get_HWND(LONG_PTR* Window)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::get_HWND"), [&](const Checks& require) {
        require.Pointer(Window, OLESTR("phWnd"), InViewer());
        *Window = reinterpret_cast<LONG_PTR>(m_listBox.Handle());
    });
}

void CprpCollectionViewerCtrl::ApplyFont()
{
    LOGFONTW font{};
    if (!ReadLogFont(m_spFont, font) && !ReadLogFont(MakeFont(kDefaultFont), font))
        return;
    FontOwner made(CreateFontIndirectW(&font));
    SendMessageW(ControlWindow(), WM_SETFONT, reinterpret_cast<WPARAM>(made.Get()), FALSE);
    m_fontList = std::move(made);
    m_listBox.SetListFont(font);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_Enabled(VARIANT_BOOL Enabled)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::put_Enabled"), [&](const Checks&) {
        const CComPtr<IOleObject> kept(this);
        m_bEnabled = In(Enabled);
        SetDirty();
        if (m_listBox.Exists())
            EnableWindow(m_listBox.Handle(), m_bEnabled); // takes the focus away, and an editor commits
        if (ControlWindow())
            EnableWindow(ControlWindow(), m_bEnabled);
    });
}

STDMETHODIMP CprpCollectionViewerCtrl::get_Enabled(VARIANT_BOOL* Enabled)
{
    return GetFlag(OLESTR("CprpCollectionViewerCtrl::get_Enabled"), m_bEnabled, Enabled);
}

void CprpCollectionViewerCtrl::SetListStyleBit(int index, DWORD bit, bool on)
{
    if (!m_listBox.Exists())
        return;
    const auto before = static_cast<DWORD>(GetWindowLongPtrW(m_listBox.Handle(), index));
    SetWindowLongPtrW(m_listBox.Handle(), index, static_cast<LONG_PTR>(on ? before | bit : before & ~bit));
}

/// @param Style  1 border line, 0 none; another number is not stored
STDMETHODIMP CprpCollectionViewerCtrl::put_BorderStyle(LONG Style)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::put_BorderStyle"), [&](const Checks&) {
        if ((Style == 0 || Style == 1) && Style != m_nBorderStyle) {
            m_nBorderStyle = Style;
            SetDirty();
            SetListStyleBit(GWL_STYLE, WS_BORDER, Style == 1);
        }
        PlaceList(SWP_FRAMECHANGED);
        ViewChanged();
    });
}

STDMETHODIMP CprpCollectionViewerCtrl::get_BorderStyle(LONG* Style)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::get_BorderStyle"), [&](const Checks& require) {
        require.Pointer(Style, OLESTR("pnValue"), InViewer());
        *Style = m_nBorderStyle;
    });
}

/// @param Appearance  1 sunken edge, 0 none; another number is not stored
STDMETHODIMP CprpCollectionViewerCtrl::put_Appearance(SHORT Appearance)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::put_Appearance"), [&](const Checks&) {
        if ((Appearance == 0 || Appearance == 1) && Appearance != m_nAppearance) {
            m_nAppearance = Appearance;
            SetDirty();
            SetListStyleBit(GWL_EXSTYLE, WS_EX_CLIENTEDGE, Appearance == 1);
        }
        PlaceList(SWP_FRAMECHANGED);
        ViewChanged();
    });
}

STDMETHODIMP CprpCollectionViewerCtrl::get_Appearance(SHORT* Appearance)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::get_Appearance"), [&](const Checks& require) {
        require.Pointer(Appearance, OLESTR("pnValue"), InViewer());
        *Appearance = m_nAppearance;
    });
}

// Colours

HRESULT CprpCollectionViewerCtrl::GetColour(const OLECHAR* method, const OLE_COLOR& stored, OLE_COLOR* out) const
{
    return InFrame(kOrigin, method, [&](const Checks& require) {
        require.Pointer(out, OLESTR("pColour"), InViewer());
        *out = stored;
    });
}

/// @param setting  place among the list's colours, null for a colour that rows ask for themselves
HRESULT CprpCollectionViewerCtrl::PutColour(const OLECHAR* method, OLE_COLOR colour, OLE_COLOR& stored,
                                            COLORREF SqorLBDrawSettings::*setting, bool erase)
{
    return InFrame(kOrigin, method, [&](const Checks&) {
        stored = colour;
        SetDirty();
        if (setting && m_listBox.Exists())
            m_listBox.m_settings.*setting = Translated(colour);
        if (setting)
            InvalidateList(erase);
    });
}

void CprpCollectionViewerCtrl::ApplyColours()
{
    SqorLBDrawSettings& settings = m_listBox.m_settings;
    settings.m_crNormalText = Translated(m_crNormalText);
    settings.m_crInvalidText = Translated(m_crInvalidText);
    settings.m_crInvalidDataItem = Translated(m_crInvalidDataItem);
    settings.m_crHighlightedText = Translated(m_crHighlightedText);
    settings.m_crItemHighlight = Translated(m_crItemHighlight);
    settings.m_crGridLine = Translated(m_crGridLine);
    settings.m_crInactiveHighlightedText = Translated(m_crInactiveHighlightedText);
    settings.m_crInactiveItemHighlight = Translated(m_crInactiveItemHighlight);
    settings.m_crReadOnlyData = Translated(m_crReadOnlyData);
    m_listBox.SetBackground(Translated(m_crBackground));
}

STDMETHODIMP CprpCollectionViewerCtrl::get_NormalTextColour(OLE_COLOR* Colour)
{
    return GetColour(OLESTR("CprpCollectionViewerCtrl::get_NormalTextColour"), m_crNormalText, Colour);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_NormalTextColour(OLE_COLOR Colour)
{
    return PutColour(OLESTR("CprpCollectionViewerCtrl::put_NormalTextColour"), Colour, m_crNormalText,
                     &SqorLBDrawSettings::m_crNormalText);
}

STDMETHODIMP CprpCollectionViewerCtrl::get_InvalidTextColour(OLE_COLOR* Colour)
{
    return GetColour(OLESTR("CprpCollectionViewerCtrl::get_InvalidTextColour"), m_crInvalidText, Colour);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_InvalidTextColour(OLE_COLOR Colour)
{
    return PutColour(OLESTR("CprpCollectionViewerCtrl::put_InvalidTextColour"), Colour, m_crInvalidText,
                     &SqorLBDrawSettings::m_crInvalidText);
}

STDMETHODIMP CprpCollectionViewerCtrl::get_HighlightedTextColour(OLE_COLOR* Colour)
{
    return GetColour(OLESTR("CprpCollectionViewerCtrl::get_HighlightedTextColour"), m_crHighlightedText, Colour);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_HighlightedTextColour(OLE_COLOR Colour)
{
    return PutColour(OLESTR("CprpCollectionViewerCtrl::put_HighlightedTextColour"), Colour, m_crHighlightedText,
                     &SqorLBDrawSettings::m_crHighlightedText);
}

STDMETHODIMP CprpCollectionViewerCtrl::get_InactiveHighlightedTextColour(OLE_COLOR* Colour)
{
    return GetColour(OLESTR("CprpCollectionViewerCtrl::get_InactiveHighlightedTextColour"), m_crInactiveHighlightedText,
                     Colour);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_InactiveHighlightedTextColour(OLE_COLOR Colour)
{
    return PutColour(OLESTR("CprpCollectionViewerCtrl::put_InactiveHighlightedTextColour"), Colour,
                     m_crInactiveHighlightedText, &SqorLBDrawSettings::m_crInactiveHighlightedText);
}

STDMETHODIMP CprpCollectionViewerCtrl::get_ItemHighlightColour(OLE_COLOR* Colour)
{
    return GetColour(OLESTR("CprpCollectionViewerCtrl::get_ItemHighlightColour"), m_crItemHighlight, Colour);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_ItemHighlightColour(OLE_COLOR Colour)
{
    return PutColour(OLESTR("CprpCollectionViewerCtrl::put_ItemHighlightColour"), Colour, m_crItemHighlight,
                     &SqorLBDrawSettings::m_crItemHighlight);
}

STDMETHODIMP CprpCollectionViewerCtrl::get_InactiveItemHighlightColour(OLE_COLOR* Colour)
{
    return GetColour(OLESTR("CprpCollectionViewerCtrl::get_InactiveItemHighlightColour"), m_crInactiveItemHighlight,
                     Colour);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_InactiveItemHighlightColour(OLE_COLOR Colour)
{
    return PutColour(OLESTR("CprpCollectionViewerCtrl::put_InactiveItemHighlightColour"), Colour,
                     m_crInactiveItemHighlight, &SqorLBDrawSettings::m_crInactiveItemHighlight);
}

STDMETHODIMP CprpCollectionViewerCtrl::get_GridLineColour(OLE_COLOR* Colour)
{
    return GetColour(OLESTR("CprpCollectionViewerCtrl::get_GridLineColour"), m_crGridLine, Colour);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_GridLineColour(OLE_COLOR Colour)
{
    return PutColour(OLESTR("CprpCollectionViewerCtrl::put_GridLineColour"), Colour, m_crGridLine,
                     &SqorLBDrawSettings::m_crGridLine);
}

STDMETHODIMP CprpCollectionViewerCtrl::get_BackgroundColour(OLE_COLOR* Colour)
{
    return GetColour(OLESTR("CprpCollectionViewerCtrl::get_BackgroundColour"), m_crBackground, Colour);
}

/// Renews the brushes of the control and of the list.
STDMETHODIMP CprpCollectionViewerCtrl::put_BackgroundColour(OLE_COLOR Colour)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::put_BackgroundColour"), [&](const Checks&) {
        m_crBackground = Colour;
        SetDirty();
        m_brBackground.Reset();
        if (m_listBox.Exists())
            m_listBox.SetBackground(Translated(Colour));
        InvalidateList(true);
    });
}

STDMETHODIMP CprpCollectionViewerCtrl::get_ReadOnlyDataColour(OLE_COLOR* Colour)
{
    return GetColour(OLESTR("CprpCollectionViewerCtrl::get_ReadOnlyDataColour"), m_crReadOnlyData, Colour);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_ReadOnlyDataColour(OLE_COLOR Colour)
{
    return PutColour(OLESTR("CprpCollectionViewerCtrl::put_ReadOnlyDataColour"), Colour, m_crReadOnlyData,
                     &SqorLBDrawSettings::m_crReadOnlyData, true);
}

STDMETHODIMP CprpCollectionViewerCtrl::get_CategoryBackgroundColour(OLE_COLOR* Colour)
{
    return GetColour(OLESTR("CprpCollectionViewerCtrl::get_CategoryBackgroundColour"), m_crCategoryBackground, Colour);
}

/// Category rows take the colour at their next refresh.
STDMETHODIMP CprpCollectionViewerCtrl::put_CategoryBackgroundColour(OLE_COLOR Colour)
{
    return PutColour(OLESTR("CprpCollectionViewerCtrl::put_CategoryBackgroundColour"), Colour, m_crCategoryBackground,
                     nullptr);
}

STDMETHODIMP CprpCollectionViewerCtrl::get_InvalidDataItemColour(OLE_COLOR* Colour)
{
    return GetColour(OLESTR("CprpCollectionViewerCtrl::get_InvalidDataItemColour"), m_crInvalidDataItem, Colour);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_InvalidDataItemColour(OLE_COLOR Colour)
{
    return PutColour(OLESTR("CprpCollectionViewerCtrl::put_InvalidDataItemColour"), Colour, m_crInvalidDataItem,
                     &SqorLBDrawSettings::m_crInvalidDataItem);
}

// Flags

HRESULT CprpCollectionViewerCtrl::GetFlag(const OLECHAR* method, bool stored, VARIANT_BOOL* out) const
{
    return InFrame(kOrigin, method, [&](const Checks& require) {
        require.Pointer(out, OLESTR("pbValue"), InViewer());
        *out = Out(stored);
    });
}

void CprpCollectionViewerCtrl::ApplyFlags()
{
    m_listBox.m_nDividerPos = m_nDividerPosition;
    m_listBox.m_bAllowEditing = m_bAllowEditing;
    m_listBox.m_bSingleLevelIndent = m_bUseSingleLevelIndentation;
    m_listBox.m_bShowExtendedInfo = m_bShowExtendedInfo;
    m_listBox.m_bShowHelpTooltips = m_bShowHelpStringTooltips;
}

STDMETHODIMP CprpCollectionViewerCtrl::get_AllowEditing(VARIANT_BOOL* Value)
{
    return GetFlag(OLESTR("CprpCollectionViewerCtrl::get_AllowEditing"), m_bAllowEditing, Value);
}

/// An open editor commits first.
STDMETHODIMP CprpCollectionViewerCtrl::put_AllowEditing(VARIANT_BOOL Value)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::put_AllowEditing"), [&](const Checks&) {
        const CComPtr<IOleObject> kept(this);
        m_bAllowEditing = In(Value);
        SetDirty();
        if (!m_listBox.Exists())
            return;
        m_listBox.EndEdit();
        m_listBox.m_bAllowEditing = m_bAllowEditing;
        InvalidateList(true);
    });
}

/// Pixels from the list's left edge.
STDMETHODIMP CprpCollectionViewerCtrl::get_DividerPosition(LONG* Value)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::get_DividerPosition"), [&](const Checks& require) {
        require.Pointer(Value, OLESTR("pnValue"), InViewer());
        if (m_listBox.Exists())
            m_nDividerPosition = m_listBox.m_nDividerPos;
        *Value = m_nDividerPosition;
    });
}

/// An open editor stays; the next paint moves it.
STDMETHODIMP CprpCollectionViewerCtrl::put_DividerPosition(LONG Value)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::put_DividerPosition"), [&](const Checks&) {
        m_nDividerPosition = Value;
        SetDirty();
        m_listBox.m_nDividerPos = Value;
        InvalidateList(false);
    });
}

STDMETHODIMP CprpCollectionViewerCtrl::get_UseSingleLevelIndentation(VARIANT_BOOL* Value)
{
    return GetFlag(OLESTR("CprpCollectionViewerCtrl::get_UseSingleLevelIndentation"), m_bUseSingleLevelIndentation,
                   Value);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_UseSingleLevelIndentation(VARIANT_BOOL Value)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::put_UseSingleLevelIndentation"), [&](const Checks&) {
        m_bUseSingleLevelIndentation = In(Value);
        m_listBox.m_bSingleLevelIndent = m_bUseSingleLevelIndentation;
        InvalidateList(true);
    });
}

STDMETHODIMP CprpCollectionViewerCtrl::get_ShowExtendedInfo(VARIANT_BOOL* Value)
{
    return GetFlag(OLESTR("CprpCollectionViewerCtrl::get_ShowExtendedInfo"), m_bShowExtendedInfo, Value);
}

/// Rows take it at their next refresh.
STDMETHODIMP CprpCollectionViewerCtrl::put_ShowExtendedInfo(VARIANT_BOOL Value)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::put_ShowExtendedInfo"), [&](const Checks&) {
        m_bShowExtendedInfo = In(Value);
        SetDirty();
        m_listBox.m_bShowExtendedInfo = m_bShowExtendedInfo;
        InvalidateList(true);
    });
}

STDMETHODIMP CprpCollectionViewerCtrl::get_ShowHelpStringTooltips(VARIANT_BOOL* Value)
{
    return GetFlag(OLESTR("CprpCollectionViewerCtrl::get_ShowHelpStringTooltips"), m_bShowHelpStringTooltips, Value);
}

STDMETHODIMP CprpCollectionViewerCtrl::put_ShowHelpStringTooltips(VARIANT_BOOL Value)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::put_ShowHelpStringTooltips"), [&](const Checks&) {
        m_bShowHelpStringTooltips = In(Value);
        SetDirty();
        m_listBox.m_bShowHelpTooltips = m_bShowHelpStringTooltips;
        m_listBox.RefreshAll();
    });
}

STDMETHODIMP CprpCollectionViewerCtrl::get_Use32BPPimages(VARIANT_BOOL* Value)
{
    return GetFlag(OLESTR("CprpCollectionViewerCtrl::get_Use32BPPimages"), m_bUse32BPPimages, Value);
}

/// Taken when the window is made.
STDMETHODIMP CprpCollectionViewerCtrl::put_Use32BPPimages(VARIANT_BOOL Value)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::put_Use32BPPimages"),
                   [&](const Checks&) { m_bUse32BPPimages = In(Value); });
}
