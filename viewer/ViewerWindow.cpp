// The viewer's window: the list in it, its messages, and what is painted while no list is shown.
#include "viewer/prpCollectionViewerCtrl.h"

#include "control/OleColour.h"
#include "frame/LanguageStrings.h"
#include "list/GridMessages.h"
#include "list/WindowIds.h"
#include "platform/system/ModuleStrings.h"
#include "platform/win/Rectangles.h"
#include "platform/win/Reflection.h"
#include "viewer/ViewerSource.h"

namespace {

constexpr DWORD kListStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP | LBS_OWNERDRAWVARIABLE |
                             LBS_NOINTEGRALHEIGHT | LBS_WANTKEYBOARDINPUT;
constexpr int kRowUnit = 15;
constexpr int kImageSize = 12;
constexpr int kImageCount = 2;
constexpr COLORREF kMaskColour = 0xFF00FF;
constexpr DWORD kAllControlClasses = 0xFF;
constexpr UINT kEmptyString = 32010;
constexpr UINT kWarningString = 32012;
constexpr WORD kMaskedImages = 32015;
constexpr WORD kBlendedImages = 32016;

/// A bitmap of the language library, or of the own module when that has none.
BitmapOwner LoadImages(WORD id, UINT flags)
{
    for (const LONG_PTR module : {LanguageModule(), OwnModuleHandle()}) {
        const HANDLE image =
            LoadImageW(reinterpret_cast<HINSTANCE>(module), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, flags);
        if (image)
            return BitmapOwner(static_cast<HBITMAP>(image));
    }
    return {};
}

/// Whether pictures can blend: decided once, for the screen that the module starts on.
bool BlendedImagesAreAvailable()
{
    static const bool s_available = GetDeviceCaps(WindowDc(nullptr), BITSPIXEL) >= 32;
    return s_available;
}

} // namespace

void CprpCollectionViewerCtrl::OnWindowCreated()
{
    constexpr unsigned kNoControlsLine = 1694;
    constexpr unsigned kNoWarningLine = 1798;
    const INITCOMMONCONTROLSEX controls{sizeof controls, kAllControlClasses};
    if (!InitCommonControlsEx(&controls))
        ThrowInternal({kViewerSource, kNoControlsLine});
    if (!m_listBox.Create(ListStyle(), WindowRectOf(ControlWindow()), ControlWindow(), kListBoxId, this))
        ThrowInternal(InViewer());
    SetListStyleBit(GWL_EXSTYLE, WS_EX_CLIENTEDGE, m_nAppearance == 1);
    PlaceList(SWP_FRAMECHANGED);
    m_listBox.m_nRowUnit = kRowUnit;
    ApplyFlags();
    ApplyColours();
    ApplyFont();
    EnableWindow(m_listBox.Handle(), m_bEnabled);
    EnableWindow(ControlWindow(), m_bEnabled);
    CreateImages();
    Text warning;
    if (!LoadLanguageString(kWarningString, warning))
        ThrowInternal({kViewerSource, kNoWarningLine});
    m_listBox.SetWarningPrefix(warning);
    CreateRows(); // of what was shown before there was a window
    UpdateListVisibility();
}

DWORD CprpCollectionViewerCtrl::ListStyle() const
{
    return kListStyle | (m_nBorderStyle == 1 ? WS_BORDER : 0U);
}

void CprpCollectionViewerCtrl::CreateImages()
{
    constexpr unsigned kNoBitmapLine = 1787;
    constexpr unsigned kNoListLine = 1788;
    const bool blended = m_bUse32BPPimages && BlendedImagesAreAvailable();
    const BitmapOwner bitmap =
        LoadImages(blended ? kBlendedImages : kMaskedImages, blended ? LR_CREATEDIBSECTION : LR_DEFAULTCOLOR);
    if (!bitmap)
        ThrowInternal({kViewerSource, kNoBitmapLine});
    const UINT depth = blended ? ILC_COLOR32 : ILC_COLOR24;
    ImageListOwner images(ImageList_Create(kImageSize, kImageSize, depth | ILC_MASK, kImageCount, 0));
    const int first = !images   ? -1
                      : blended ? ImageList_Add(images.Get(), bitmap.Get(), nullptr)
                                : ImageList_AddMasked(images.Get(), bitmap.Get(), kMaskColour);
    if (first < 0)
        ThrowInternal({kViewerSource, kNoListLine});
    m_imageList = std::move(images);
    m_listBox.SetImageList(m_imageList.Get());
}

LRESULT CprpCollectionViewerCtrl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE: PlaceList(0); return 0;
    case WM_SETFOCUS: {
        const LRESULT result = ControlBase::OnMessage(message, wParam, lParam);
        if (IsInPlaceActive() && m_listBox.Exists() && GetFocus() == ControlWindow())
            SetFocus(m_listBox.Handle());
        return result;
    }
    case WM_RBUTTONDOWN: return 0;
    case WM_CTLCOLORLISTBOX: return reinterpret_cast<LRESULT>(BackgroundBrush());
    case WM_COMMAND: return OnCommand(wParam, lParam);
    case kItemToggledMessage: OnItemToggled(reinterpret_cast<CqorLBItem*>(wParam), lParam != 0); return 0;
    case kReturnKeyMessage:
    case kTabKeyMessage: EditSelectedRow(); return 0; // on purpose: Tab does not move between rows
    case kEditStartMessage: Fire(&Proxy::Fire_InPlaceEditStart); return 0;
    case kEditEndMessage: Fire(&Proxy::Fire_InPlaceEditEnd); return 0;
    case WM_DESTROY: return OnDestroy(wParam, lParam);
    default:
        if (const auto answer = ReflectToChild(ControlWindow(), message, wParam, lParam))
            return *answer;
        return ControlBase::OnMessage(message, wParam, lParam);
    }
}

LRESULT CprpCollectionViewerCtrl::OnCommand(WPARAM wParam, LPARAM lParam)
{
    if (!m_listBox.Exists() || reinterpret_cast<HWND>(lParam) != m_listBox.Handle())
        return 0;
    switch (HIWORD(wParam)) {
    case LBN_SELCHANGE: OnSelectionChanged(); break;
    case LBN_SETFOCUS: FocusGained(); break;
    case LBN_KILLFOCUS: FocusLost(); break;
    default: break;
    }
    return 0;
}

/// Tells the selection as it is now: the message was posted, and rows may have gone since.
void CprpCollectionViewerCtrl::OnSelectionChanged()
{
    const int last = m_listBox.RowCount() - 1;
    if (m_listBox.GetCurSel() > last)
        m_listBox.SelectRow(last);
    const CprpPropItem* const row = SelectedRow();
    if (!row || !row->m_pPropInfo)
        return;
    const CComPtr<IqorPropertyCollection> kept = row->m_pPropInfo->m_listCollections.front();
    Fire(&Proxy::Fire_SelectionChanged, row->m_pPropInfo->m_nPropertyID);
}

/// @param item  from a posted message; it may be gone
void CprpCollectionViewerCtrl::OnItemToggled(CqorLBItem* item, bool collapsed)
{
    if (!m_listBox.HasItem(item))
        return;
    const CprpMultiplePropInfo* const node = static_cast<const CprpPropItem*>(item)->m_pPropInfo;
    if (!node)
        ThrowInternal(InViewer());
    if (node->m_eDataType == E_PROP_DT_CATEGORY)
        m_mapCategoryState[node->m_nPropertyID] = collapsed;
    Fire(&Proxy::Fire_PropertyExpandCollapse, node->m_nPropertyID, collapsed);
}

/// The editor commits on the way, with rows and sinks still in place. The rows go with the window; the collections
/// stay, and their rows come back with the next window.
LRESULT CprpCollectionViewerCtrl::OnDestroy(WPARAM wParam, LPARAM lParam)
{
    m_listBox.Destroy();
    DropRows();
    m_imageList.Reset();
    m_fontList.Reset();
    return ControlBase::OnMessage(WM_DESTROY, wParam, lParam);
}

bool CprpCollectionViewerCtrl::TakesKey(const MSG& message)
{
    if (message.message != WM_KEYDOWN || !m_listBox.Exists())
        return false;
    if (message.wParam == VK_F5) {
        m_listBox.RefreshAll();
        RedrawAll();
        return true;
    }
    if (message.wParam < VK_PRIOR || message.wParam > VK_DOWN)
        return false;
    SendMessageW(message.hwnd, message.message, message.wParam, message.lParam); // the host leaves it alone from here
    return true;
}

void CprpCollectionViewerCtrl::PlaceList(UINT flags)
{
    if (!m_listBox.Exists())
        return;
    const Rect client = ClientRectOf(ControlWindow());
    SetWindowPos(m_listBox.Handle(), nullptr, 0, 0, client.Width(), client.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE | flags);
}

/// A list with rows covers the control; without rows it makes place for the text that says so.
void CprpCollectionViewerCtrl::UpdateListVisibility()
{
    if (!m_listBox.Exists())
        return;
    const bool wanted = m_listBox.RowCount() > 0;
    const bool shown = (GetWindowLongPtrW(m_listBox.Handle(), GWL_STYLE) & WS_VISIBLE) != 0;
    if (wanted != shown)
        ShowWindow(m_listBox.Handle(), wanted ? SW_RESTORE : SW_HIDE);
}

void CprpCollectionViewerCtrl::RedrawAll()
{
    if (m_listBox.Exists())
        RedrawWindow(m_listBox.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

HBRUSH CprpCollectionViewerCtrl::BackgroundBrush()
{
    if (!m_brBackground)
        m_brBackground.Reset(CreateSolidBrush(Translated(m_crBackground)));
    return m_brBackground.Get();
}

/// What shows while the list is hidden.
void CprpCollectionViewerCtrl::OnDraw(HDC dc, const Rect& place)
{
    RECT area = ToPlatform(place);
    FillRect(dc, &area, BackgroundBrush());
    if (m_nAppearance == 1)
        DrawEdge(dc, &area, EDGE_SUNKEN, BF_RECT);
    if (m_nBorderStyle == 1)
        FrameRect(dc, &area, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));

    Text text;
    if (!LoadLanguageString(kEmptyString, text))
        text = OLESTR("No Visible Properties to Display");
    const SelectionScope font(dc, m_fontList.Get());
    const COLORREF textBefore = SetTextColor(dc, Translated(m_crNormalText));
    const COLORREF groundBefore = SetBkColor(dc, Translated(m_crBackground));
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    SetTextColor(dc, textBefore);
    SetBkColor(dc, groundBefore);
    UpdateListVisibility();
}
