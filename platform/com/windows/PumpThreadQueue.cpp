#include "platform/com/PumpThreadQueue.h"

ULONG PumpThreadQueue(DWORD dwTimeout)
{
    MsgWaitForMultipleObjectsEx(0, nullptr, dwTimeout, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    ULONG handled = 0;
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++handled) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam)); // the loop around this one must see it, too
            break;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return handled;
}
