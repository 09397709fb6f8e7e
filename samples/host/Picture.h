// A window as a picture in a file.
#pragma once

#include <windows.h>

#include <string>

/// Writes menu and client area, without the frame that each desktop draws in its own way, as a BMP file of 24 bits. The
/// window must be shown; it may be covered. Throws ToolError when the file can't be written.
/// @param path  in UTF-8.
void SavePicture(HWND window, const std::string& path);
