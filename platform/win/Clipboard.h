// Reading text from the clipboard.
#pragma once

#include "platform/com/Ole.h"

#include <optional>

/// Holds the clipboard open. No sharing: whoever keeps one keeps all others out.
class ClipboardReader {
public:
    explicit ClipboardReader(HWND owner) : m_bOpen(OpenClipboard(owner) != FALSE) {}
    ~ClipboardReader()
    {
        if (m_bOpen)
            CloseClipboard();
    }
    ClipboardReader(const ClipboardReader&) = delete;
    ClipboardReader& operator=(const ClipboardReader&) = delete;

    bool IsOpen() const { return m_bOpen; }
    /// Nothing when the format is not there or cannot be read.
    std::optional<Text> WideText() const;
    /// Converted from the ANSI code page.
    std::optional<Text> NarrowText() const;

private:
    bool m_bOpen;
};
