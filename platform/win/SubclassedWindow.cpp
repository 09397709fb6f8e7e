#include "platform/win/SubclassedWindow.h"

#include "platform/win/Rectangles.h"

#include <mutex>
#include <unordered_map>

namespace {

/// What a hooked window's messages lead to. The object is null when it has gone while the hook could not be taken
/// out because another hook stands above it.
struct Hook {
    SubclassedWindow* object;
    WNDPROC classProcedure;
};

/// Process-wide; windows may belong to several threads.
class HookTable {
public:
    static HookTable& Get()
    {
        static HookTable table;
        return table;
    }
    Hook Find(HWND window)
    {
        const std::lock_guard lock(m_mutex);
        const auto it = m_hooks.find(window);
        return it == m_hooks.end() ? Hook{} : it->second;
    }
    void Set(HWND window, Hook hook)
    {
        const std::lock_guard lock(m_mutex);
        m_hooks[window] = hook;
    }
    void Erase(HWND window)
    {
        const std::lock_guard lock(m_mutex);
        m_hooks.erase(window);
    }
    template <class Matches>
    SubclassedWindow* FindObject(const Matches& matches)
    {
        const std::lock_guard lock(m_mutex);
        for (const auto& [window, hook] : m_hooks) {
            if (hook.object && matches(*hook.object))
                return hook.object;
        }
        return nullptr;
    }
    int Count()
    {
        const std::lock_guard lock(m_mutex);
        return static_cast<int>(m_hooks.size());
    }

private:
    std::mutex m_mutex;
    std::unordered_map<HWND, Hook> m_hooks;
};

} // namespace

SubclassedWindow::~SubclassedWindow()
{
    if (const HWND window = m_hWnd) {
        Unhook();
        DestroyWindow(window);
    }
}

bool SubclassedWindow::Create(const ChildWindow& window)
{
    const Rect& r = window.place;
    const HWND handle = CreateWindowExW(
        window.extendedStyle, window.className, window.text, window.style, r.left, r.top, r.Width(), r.Height(),
        window.parent, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(window.id)), GetModuleHandleW(nullptr), nullptr);
    if (!handle)
        return false;
    m_hWnd = handle;
    m_hParent = window.parent;
    m_nID = window.id;
    m_pfnClass = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(handle, GWLP_WNDPROC));
    HookTable::Get().Set(handle, {this, m_pfnClass});
    SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
    return true;
}

void SubclassedWindow::Destroy()
{
    if (m_hWnd)
        DestroyWindow(m_hWnd);
}

LRESULT SubclassedWindow::Default(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return m_hWnd ? CallWindowProcW(m_pfnClass, m_hWnd, message, wParam, lParam) : 0;
}

LRESULT SubclassedWindow::Deliver(UINT message, WPARAM wParam, LPARAM lParam)
{
    const WindowLifetimeScope scope(Lifetime());
    return Dispatch(message, wParam, lParam);
}

LRESULT SubclassedWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return Default(message, wParam, lParam);
}

LRESULT SubclassedWindow::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    try {
        return OnMessage(message, wParam, lParam);
    } catch (...) {
        OnException();
        return 0;
    }
}

LRESULT CALLBACK SubclassedWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const Hook hook = HookTable::Get().Find(window);
    if (!hook.classProcedure)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        if (hook.object)
            hook.object->m_hWnd = nullptr;
        HookTable::Get().Erase(window);
    }
    if (!hook.object || message == WM_NCDESTROY)
        return CallWindowProcW(hook.classProcedure, window, message, wParam, lParam);
    return hook.object->Deliver(message, wParam, lParam);
}

void SubclassedWindow::Unhook()
{
    if (reinterpret_cast<WNDPROC>(GetWindowLongPtrW(m_hWnd, GWLP_WNDPROC)) == &Procedure) {
        SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnClass));
        HookTable::Get().Erase(m_hWnd);
    } else {
        HookTable::Get().Set(m_hWnd, {nullptr, m_pfnClass});
    }
    m_hWnd = nullptr;
}

Text SubclassedWindow::WindowText() const
{
    Text text(static_cast<std::size_t>(GetWindowTextLengthW(m_hWnd)), 0);
    text.resize(static_cast<std::size_t>(GetWindowTextW(m_hWnd, text.data(), static_cast<int>(text.size() + 1))));
    return text;
}

Rect SubclassedWindow::ClientRect() const
{
    return ClientRectOf(m_hWnd);
}

SubclassedWindow* SubclassedWindow::FromHandle(HWND window)
{
    return HookTable::Get().Find(window).object;
}

SubclassedWindow* SubclassedWindow::FindChild(HWND parent, UINT id)
{
    return HookTable::Get().FindObject(
        [&](const SubclassedWindow& each) { return each.m_hParent == parent && each.m_nID == id; });
}

int SubclassedWindow::LivingWindows()
{
    return HookTable::Get().Count();
}
