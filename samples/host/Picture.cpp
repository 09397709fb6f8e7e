#include "samples/host/Picture.h"

#include "platform/win/HandleOwners.h"
#include "platform/win/Rectangles.h"
#include "tools/lvprop/Files.h"

#include <algorithm>
#include <new>

namespace {

/// Device context of a whole window, its children included.
class FrameDc {
public:
    explicit FrameDc(HWND window) : m_window(window), m_dc(GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE)) {}
    ~FrameDc() { ReleaseDC(m_window, m_dc); }
    FrameDc(const FrameDc&) = delete;
    FrameDc& operator=(const FrameDc&) = delete;
    HDC Get() const { return m_dc; }

private:
    HWND m_window;
    HDC m_dc;
};

BITMAPINFOHEADER HeaderFor(int width, int height)
{
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = 24;
    header.biSizeImage = static_cast<DWORD>((width * 3 + 3) / 4 * 4 * height);
    return header;
}

/// Menu and client area, in pixels of the whole window.
Rect ContentOf(HWND window)
{
    const Rect frame = WindowRectOf(window);
    RECT content = ToPlatform(ClientRectOf(window));
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&content), 2);
    MENUBARINFO menu{};
    menu.cbSize = sizeof menu;
    if (GetMenuBarInfo(window, OBJID_MENU, 0, &menu))
        content.top = std::min(content.top, menu.rcBar.top);
    return Move(FromPlatform(content), -frame.left, -frame.top);
}

std::string CopyPixels(HDC source, Point from, const BITMAPINFOHEADER& header)
{
    BITMAPINFO info{};
    info.bmiHeader = header;
    void* bits = nullptr;
    const MemoryDcOwner memory(CreateCompatibleDC(source));
    const BitmapOwner bitmap(CreateDIBSection(memory.Get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap)
        throw std::bad_alloc();
    const SelectionScope selected(memory.Get(), bitmap.Get());
    BitBlt(memory.Get(), 0, 0, header.biWidth, header.biHeight, source, from.x, from.y, SRCCOPY);
    GdiFlush();
    return {static_cast<const char*>(bits), header.biSizeImage};
}

template <class Record>
void Append(std::string& bytes, const Record& record)
{
    bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
}

} // namespace

void SavePicture(HWND window, const std::string& path)
{
    const Rect content = ContentOf(window);
    const FrameDc dc(window);
    const BITMAPINFOHEADER header = HeaderFor(content.Width(), content.Height());
    const std::string pixels = CopyPixels(dc.Get(), {content.left, content.top}, header);

    BITMAPFILEHEADER file{};
    file.bfType = 'B' | 'M' << 8;
    file.bfOffBits = sizeof file + sizeof header;
    file.bfSize = static_cast<DWORD>(file.bfOffBits + pixels.size());
    std::string bytes;
    Append(bytes, file);
    Append(bytes, header);
    WriteFile(path, bytes + pixels);
}
