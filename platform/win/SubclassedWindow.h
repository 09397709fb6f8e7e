// A window of a platform class whose messages pass through an object of ours first.
//
// The base owns the hook: it puts the object before the window's own procedure, finds it again for each message,
// stops every exception at the edge, and lets go when the window goes. User-interface thread of the window only.
#pragma once

#include "platform/com/Ole.h"
#include "platform/draw/Rect.h"

/// Told around every message, so that an owner stays in memory while one of its windows is being called. The last
/// Leave may destroy the owner and with it the window object.
class WindowLifetime {
public:
    virtual void EnterMessage() noexcept = 0;
    virtual void LeaveMessage() noexcept = 0;

protected:
    ~WindowLifetime() = default;
};

class WindowLifetimeScope {
public:
    /// @param lifetime  may be null
    explicit WindowLifetimeScope(WindowLifetime* lifetime) : m_lifetime(lifetime)
    {
        if (m_lifetime)
            m_lifetime->EnterMessage();
    }
    ~WindowLifetimeScope()
    {
        if (m_lifetime)
            m_lifetime->LeaveMessage();
    }
    WindowLifetimeScope(const WindowLifetimeScope&) = delete;
    WindowLifetimeScope& operator=(const WindowLifetimeScope&) = delete;

private:
    WindowLifetime* m_lifetime;
};

/// A child window that is to be made.
struct ChildWindow {
    const OLECHAR* className;
    const OLECHAR* text;
    DWORD style;
    Rect place;
    HWND parent;
    UINT id;
    DWORD extendedStyle = 0;
};

class SubclassedWindow {
public:
    SubclassedWindow() = default;
    SubclassedWindow(const SubclassedWindow&) = delete;
    SubclassedWindow& operator=(const SubclassedWindow&) = delete;
    virtual ~SubclassedWindow();

    /// Makes a window of a platform class and hooks it. False when the platform refuses.
    bool Create(const ChildWindow& window);
    /// Destroys the window if it exists. Losing the focus on the way may call out to hosts.
    void Destroy();

    HWND Handle() const { return m_hWnd; }
    bool Exists() const { return m_hWnd != nullptr; }
    bool HasFocus() const { return m_hWnd && GetFocus() == m_hWnd; }
    UINT Id() const { return m_nID; }
    HWND Parent() const { return m_hParent; }

    /// Through all hooks, as a message from outside.
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendMessageW(m_hWnd, message, wParam, lParam);
    }
    /// Straight to the procedure of the window's class: past all hooks, of which others may be slow.
    LRESULT Default(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    /// As if the message had come from outside, without the way through the other hooks.
    LRESULT Deliver(UINT message, WPARAM wParam, LPARAM lParam);

    Text WindowText() const;
    void PutText(const Text& text) { SetWindowTextW(m_hWnd, text.c_str()); }
    Rect ClientRect() const;
    void Invalidate(bool erase) const { InvalidateRect(m_hWnd, nullptr, erase); }

    /// The object of a hooked window, null for any other window.
    static SubclassedWindow* FromHandle(HWND window);
    /// The hooked child with an id, null when there is none.
    static SubclassedWindow* FindChild(HWND parent, UINT id);
    /// Windows that are hooked now, process-wide.
    static int LivingWindows();

protected:
    /// A message from outside or reflected by the parent. The object may be gone when a call out returns; whoever
    /// makes one touches nothing afterwards that is not kept by the lifetime.
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    /// Called in the handler of an exception that OnMessage let pass; the message counts as handled with 0.
    virtual void OnException() noexcept {}
    virtual WindowLifetime* Lifetime() { return nullptr; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Dispatch(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void Unhook();

    HWND m_hWnd = nullptr;
    HWND m_hParent = nullptr;
    UINT m_nID = 0;
    WNDPROC m_pfnClass = nullptr;
};
