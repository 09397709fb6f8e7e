// How the server speaks up: message boxes and beeps. They go through this record, so that a test can count them and a
// host without a user can silence them.
#pragma once

#include "platform/com/Ole.h"

struct UserMessages {
    int(WINAPI* showBox)(HWND owner, LPCWSTR text, LPCWSTR caption, UINT flags) = &MessageBoxW;
    BOOL(WINAPI* beep)(UINT type) = &MessageBeep;
};

/// Process-wide; put back what you replace. Not for use while windows of the server are open on other threads.
inline UserMessages g_userMessages;
