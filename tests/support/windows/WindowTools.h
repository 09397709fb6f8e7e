// Driving and looking at windows: messages, keys, mouse, pixels, the clipboard, replaced alerts.
#pragma once

#include "platform/draw/Rect.h"
#include "platform/win/Alerts.h"
#include "platform/win/Rectangles.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

inline void Pump()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/// Pumps until something holds; false when it does not within two seconds.
inline bool PumpUntil(const std::function<bool()>& holds)
{
    const ULONGLONG end = GetTickCount64() + 2000;
    for (;;) {
        Pump();
        if (holds())
            return true;
        if (GetTickCount64() > end)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
}

/// A key to the window with the focus, by way of the queue, so that it is translated to its character.
inline void PressKey(UINT key)
{
    const LPARAM scan = static_cast<LPARAM>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)) << 16;
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1 | scan);
    Pump();
}

inline void TypeCharacters(const std::wstring& text)
{
    for (const wchar_t c : text)
        SendMessageW(GetFocus(), WM_CHAR, c, 1);
}

/// Holds a modifier key down for messages that are sent.
class HeldKey {
public:
    explicit HeldKey(int key) : m_key(key) { Set(0x80); }
    ~HeldKey() { Set(0); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

private:
    void Set(BYTE state) const
    {
        BYTE keys[256];
        GetKeyboardState(keys);
        keys[m_key] = state;
        SetKeyboardState(keys);
    }
    int m_key;
};

inline LPARAM At(Point p)
{
    return MAKELPARAM(p.x, p.y);
}

inline void ClickAt(HWND window, Point p, WPARAM keys = 0)
{
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | keys, At(p));
    SendMessageW(window, WM_LBUTTONUP, keys, At(p));
}

inline void DoubleClickAt(HWND window, Point p)
{
    ClickAt(window, p);
    SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, At(p));
    SendMessageW(window, WM_LBUTTONUP, 0, At(p));
}

/// The client area of a window as it is on the screen.
class Picture {
public:
    explicit Picture(HWND window)
    {
        const Rect client = ClientRectOf(window);
        m_width = client.Width();
        m_height = client.Height();
        const HDC dc = GetDC(window);
        const HDC memory = CreateCompatibleDC(dc);
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = m_width;
        info.bmiHeader.biHeight = -m_height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        const HGDIOBJ before = SelectObject(memory, bitmap);
        BitBlt(memory, 0, 0, m_width, m_height, dc, 0, 0, SRCCOPY);
        GdiFlush();
        const auto* pixels = static_cast<const DWORD*>(bits);
        m_pixels.assign(pixels, pixels + m_width * m_height);
        SelectObject(memory, before);
        DeleteObject(bitmap);
        DeleteDC(memory);
        ReleaseDC(window, dc);
    }

    /// 0x00BBGGRR, as all colours of the list.
    COLORREF At(int x, int y) const
    {
        if (x < 0 || y < 0 || x >= m_width || y >= m_height)
            return CLR_INVALID;
        const DWORD rgb = m_pixels[static_cast<std::size_t>(y * m_width + x)];
        return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF);
    }
    /// True when every pixel of an area has a colour.
    bool IsFilled(const Rect& area, COLORREF colour) const
    {
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x) {
                if (At(x, y) != colour)
                    return false;
            }
        }
        return true;
    }
    /// True when some pixel of an area has a colour.
    bool Shows(const Rect& area, COLORREF colour) const
    {
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x) {
                if (At(x, y) == colour)
                    return true;
            }
        }
        return false;
    }
    bool SameIn(const Rect& area, const Picture& other) const
    {
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x) {
                if (At(x, y) != other.At(x, y))
                    return false;
            }
        }
        return true;
    }

private:
    int m_width = 0;
    int m_height = 0;
    std::vector<DWORD> m_pixels;
};

/// Records message boxes and beeps in place of showing and sounding them.
class RecordedAlerts {
public:
    RecordedAlerts() : m_before(CurrentAlerts())
    {
        s_boxes.clear();
        s_captions.clear();
        s_beeps.clear();
        s_flags = 0;
        CurrentAlerts() = {[](HWND, const OLECHAR* text, const OLECHAR* caption, UINT flags) {
                               s_boxes.emplace_back(text);
                               s_captions.emplace_back(caption);
                               s_flags = flags;
                               return IDOK;
                           },
                           [](UINT sound) { s_beeps.push_back(sound); }};
    }
    ~RecordedAlerts() { CurrentAlerts() = m_before; }
    RecordedAlerts(const RecordedAlerts&) = delete;
    RecordedAlerts& operator=(const RecordedAlerts&) = delete;

    const std::vector<Text>& Boxes() const { return s_boxes; }
    const std::vector<Text>& Captions() const { return s_captions; }
    const std::vector<UINT>& Beeps() const { return s_beeps; }
    UINT Flags() const { return s_flags; }

private:
    static inline std::vector<Text> s_boxes;
    static inline std::vector<Text> s_captions;
    static inline std::vector<UINT> s_beeps;
    static inline UINT s_flags = 0;
    Alerts m_before;
};

/// Puts a text on the clipboard in one format.
template <class Char>
void PutOnClipboard(UINT format, const std::basic_string<Char>& text)
{
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    const std::size_t bytes = (text.size() + 1) * sizeof(Char);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    memcpy(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    SetClipboardData(format, memory);
    CloseClipboard();
}

inline void EmptyTheClipboard()
{
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    CloseClipboard();
}
