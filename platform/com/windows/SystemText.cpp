// Windows body, on FormatMessageW.
#include "platform/com/SystemText.h"

#include <iterator>

Text SystemText(HRESULT code)
{
    if (code == 0)
        return {}; // the system has "success" here, which no failure report should show
    constexpr DWORD kUserDefault = 1024;
    OLECHAR buffer[1024];
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, static_cast<DWORD>(code),
                       kUserDefault, buffer, static_cast<DWORD>(std::size(buffer)), nullptr);
    return length ? Text(buffer, length) : Text(OLESTR("Error Formatting Last Error"));
}
