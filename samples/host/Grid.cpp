#include "samples/host/Grid.h"

#include "platform/win/Rectangles.h"

using lumevor::Check;
using lumevor::Ref;

namespace {

constexpr wchar_t kControl[] = L"Tolvarin.prpCollectionViewerCtrl";
constexpr COLORREF kErrorRed = RGB(208, 32, 32);

/// The container is part of the system's atl.dll, which has no import library everywhere.
class ControlContainer {
public:
    static const ControlContainer& Get()
    {
        static const ControlContainer container;
        return container;
    }
    Ref<IUnknown> ControlIn(HWND window) const
    {
        Ref<IUnknown> control;
        if (m_getControl)
            m_getControl(window, control.Put());
        return control;
    }

private:
    ControlContainer()
    {
        const HMODULE library = LoadLibraryExW(L"atl.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        const auto init = Function<BOOL(WINAPI*)()>(library, "AtlAxWinInit");
        if (init && init())
            m_getControl = Function<decltype(m_getControl)>(library, "AtlAxGetControl");
    }
    template <class Pointer>
    static Pointer Function(HMODULE library, const char* name)
    {
        return library ? reinterpret_cast<Pointer>(reinterpret_cast<void*>(GetProcAddress(library, name))) : nullptr;
    }

    HRESULT(WINAPI* m_getControl)(HWND, IUnknown**) = nullptr;
};

/// Holds the painting of a window back; then it paints once.
class PaintHold {
public:
    explicit PaintHold(HWND window) : m_window(window) { SendMessageW(m_window, WM_SETREDRAW, FALSE, 0); }
    ~PaintHold()
    {
        SendMessageW(m_window, WM_SETREDRAW, TRUE, 0);
        RedrawWindow(m_window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    }
    PaintHold(const PaintHold&) = delete;
    PaintHold& operator=(const PaintHold&) = delete;

private:
    HWND m_window;
};

} // namespace

Grid::Grid(HWND parent, UINT id, GridListener& listener)
{
    const ControlContainer& container = ControlContainer::Get();
    m_window =
        CreateWindowExW(0, L"AtlAxWin", kControl, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                        parent, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    const Ref<IUnknown> control = container.ControlIn(m_window);
    m_viewer = control.As<IprpCollectionViewerCtrl>();
    m_active = control.As<IOleInPlaceActiveObject>();
    if (!m_viewer || !m_active)
        throw lumevor::Error(REGDB_E_CLASSNOTREG,
                             OLESTR("the grid can not be made: the component's DLLs and manifests must stand beside "
                                    "this program"));
    m_connection.emplace(control.Get(), listener);
    Check(m_viewer->put_InvalidDataItemColour(kErrorRed));
    Check(m_viewer->put_UseSingleLevelIndentation(VARIANT_FALSE)); // plans are deep: show how
}

/// The container closes the control when its window goes.
Grid::~Grid()
{
    m_connection.reset();
    m_active.Clear();
    if (m_viewer)
        m_viewer->Clear();
    m_viewer.Clear();
    DestroyWindow(m_window);
}

HWND Grid::RowsWindow() const
{
    LONG_PTR window = 0;
    Check(m_viewer->get_HWND(&window));
    return reinterpret_cast<HWND>(window);
}

void Grid::Show(IqorPropertyCollection* collection)
{
    if (!collection) {
        Check(m_viewer->Clear());
        return;
    }
    Check(m_viewer->ShowProperties(&collection, 1));
    FitNames();
}

void Grid::FitNames()
{
    Check(m_viewer->AutoFitDivider());
    LONG divider = 0;
    Check(m_viewer->get_DividerPosition(&divider));
    const LONG half = ClientRectOf(m_window).Width() / 2;
    if (half > 0 && divider > half)
        Check(m_viewer->put_DividerPosition(half));
}

void Grid::ExpandAll(const Document& document, bool expand)
{
    const PaintHold hold(RowsWindow());
    for (const LONG id : document.Parents())
        Check(m_viewer->ExpandCollapseProperty(id, lumevor::Property::ToVariantBool(expand)));
}

void Grid::Zoom(bool in)
{
    const short turn = in ? WHEEL_DELTA : -WHEEL_DELTA;
    SendMessageW(RowsWindow(), WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(turn)), 0);
}

void Grid::CommitTyping()
{
    Check(m_viewer->EndInPlaceEdit());
}

bool Grid::HasFocus() const
{
    return IsChild(m_window, GetFocus());
}

void Grid::TakeFocus()
{
    if (!HasFocus())
        SetFocus(RowsWindow());
}

bool Grid::Translate(MSG& message)
{
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    return isKey && HasFocus() && m_active->TranslateAccelerator(&message) == S_OK;
}

LONG Grid::Selected() const
{
    LONG id = E_PROP_ID_INVALID;
    Check(m_viewer->GetSelectedProperty(&id));
    return id;
}

std::optional<Rect> Grid::PlaceOf(LONG property) const
{
    LONG left = 0, top = 0, right = 0, bottom = 0;
    Check(m_viewer->GetPropertyDataRect(property, &left, &top, &right, &bottom));
    RECT place{left, top, right, bottom};
    if (IsRectEmpty(&place))
        return std::nullopt;
    MapWindowPoints(GetParent(RowsWindow()), RowsWindow(), reinterpret_cast<POINT*>(&place), 2);
    return FromPlatform(place);
}
