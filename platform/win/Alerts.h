// What interrupts the user: message boxes and beeps. Replaceable, so that a test counts them in place of waiting.
#pragma once

#include "platform/com/Ole.h"

struct Alerts {
    int (*messageBox)(HWND owner, const OLECHAR* text, const OLECHAR* caption, UINT flags);
    void (*beep)(UINT sound);
};

/// The functions in use: the platform's own unless a test has put others in their place.
Alerts& CurrentAlerts();
