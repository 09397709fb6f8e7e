#include "platform/win/Alerts.h"

Alerts& CurrentAlerts()
{
    static Alerts alerts{
        [](HWND owner, const OLECHAR* text, const OLECHAR* caption, UINT flags) {
            return MessageBoxW(owner, text, caption, flags);
        },
        [](UINT sound) { MessageBeep(sound); },
    };
    return alerts;
}
