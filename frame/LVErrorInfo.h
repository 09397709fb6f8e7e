// What is thrown through the body of an interface method.
#pragma once

#include "frame/FormatText.h"
#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"

/// A raised error: the message that the caller will read and the code that the method returns.
struct LVErrorInfo {
    OLECHAR m_szMessage[kMessageUnits] = {};
    OLECHAR m_szLocation[kMessageUnits] = {};
    bool m_bHasLocation = false; ///< the location becomes the second line of the description
    HRESULT m_hr = S_OK;
};

/// A failed nested call: its code, and the description that the callee left, if any.
struct ComError {
    HRESULT hr = S_OK;
    CComPtr<IErrorInfo> info;
};
