// Owners of window system handles. Each counts, so that a test sees what a long session leaves behind; the platform
// itself may not tell.
#pragma once

#include "platform/com/Ole.h"

#include <commctrl.h>

#include <atomic>
#include <utility>

/// Handles that the owners of this module hold, process-wide. Any thread.
class LivingHandles {
public:
    static int Count() { return s_count.load(std::memory_order_relaxed); }
    static void Add(int change) { s_count.fetch_add(change, std::memory_order_relaxed); }

private:
    static inline std::atomic<int> s_count{0};
};

/// Owns one handle, closed by Close. Null is no handle.
template <class Handle, auto Close>
class HandleOwner {
public:
    HandleOwner() = default;
    explicit HandleOwner(Handle handle) { Reset(handle); }
    HandleOwner(HandleOwner&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    HandleOwner& operator=(HandleOwner&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~HandleOwner() { Reset(); }

    /// Takes over a handle and closes the one before.
    void Reset(Handle handle = nullptr)
    {
        LivingHandles::Add((handle ? 1 : 0) - (m_handle ? 1 : 0));
        if (Handle old = std::exchange(m_handle, handle))
            Close(old);
    }
    Handle Get() const { return m_handle; }
    explicit operator bool() const { return m_handle != nullptr; }

private:
    Handle m_handle = nullptr;
};

inline void CloseGdiObject(HGDIOBJ object)
{
    DeleteObject(object);
}
inline void CloseImageList(HIMAGELIST list)
{
    ImageList_Destroy(list);
}
inline void CloseMemoryDc(HDC dc)
{
    DeleteDC(dc);
}

using FontOwner = HandleOwner<HFONT, CloseGdiObject>;
using BrushOwner = HandleOwner<HBRUSH, CloseGdiObject>;
using PenOwner = HandleOwner<HPEN, CloseGdiObject>;
using BitmapOwner = HandleOwner<HBITMAP, CloseGdiObject>;
using ImageListOwner = HandleOwner<HIMAGELIST, CloseImageList>;
using MemoryDcOwner = HandleOwner<HDC, CloseMemoryDc>;

/// Selects an object into a device context for as long as it lives.
class SelectionScope {
public:
    SelectionScope(HDC dc, HGDIOBJ object) : m_dc(dc), m_before(object ? SelectObject(dc, object) : nullptr) {}
    ~SelectionScope()
    {
        if (m_before)
            SelectObject(m_dc, m_before);
    }
    SelectionScope(const SelectionScope&) = delete;
    SelectionScope& operator=(const SelectionScope&) = delete;

private:
    HDC m_dc;
    HGDIOBJ m_before;
};

/// The device context of a window's client area.
class WindowDc {
public:
    explicit WindowDc(HWND window) : m_window(window), m_dc(GetDC(window)) {}
    ~WindowDc() { ReleaseDC(m_window, m_dc); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    operator HDC() const { return m_dc; }

private:
    HWND m_window;
    HDC m_dc;
};

/// Shows a cursor for as long as it lives, then the one that `after` gives.
template <class After>
class CursorScope {
public:
    CursorScope(HCURSOR cursor, After after) : m_after(std::move(after)) { SetCursor(cursor); }
    ~CursorScope() { SetCursor(m_after()); }
    CursorScope(const CursorScope&) = delete;
    CursorScope& operator=(const CursorScope&) = delete;

private:
    After m_after;
};
