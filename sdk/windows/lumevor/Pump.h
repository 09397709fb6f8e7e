// Delivering the events that other threads have posted to this one; the Windows half, for programs and threads without
// a message loop of their own.
#pragma once

#include <windows.h>

namespace lumevor {

/// Delivers the messages of the calling thread, and waits for the first of them. WM_QUIT ends the call and stays
/// posted for the program's own loop.
/// @param milliseconds  longest wait; 0 only looks, INFINITE waits without limit.
/// @return the number of messages delivered.
inline ULONG PumpEvents(DWORD milliseconds)
{
    ULONG delivered = 0;
    MsgWaitForMultipleObjectsEx(0, nullptr, milliseconds, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return delivered;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
        ++delivered;
    }
    return delivered;
}

} // namespace lumevor
