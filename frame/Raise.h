// The raise operations. None of them returns; what they throw is turned into a code and a description by the
// method frame. Usage errors carry the source line in their code, so that a report from the field names the check.
#pragma once

#include "frame/CallSite.h"
#include "frame/FormatText.h"
#include "frame/LVErrorInfo.h"
#include "platform/com/Ole.h"

/// 7008 in the custom facility: an internal error, or one that nobody knows.
inline constexpr HRESULT kInternalError = static_cast<HRESULT>(0x80041B60);
/// Facility of usage errors; the low bits are the source line, those of a resource error the string id.
inline constexpr HRESULT kUsageErrorBase = static_cast<HRESULT>(0x80040000);

inline constexpr const OLECHAR* kNullPointerText =
    OLESTR("Invalid pointer passed to the function '%s'. Parameter '%s' is NULL.");
inline constexpr const OLECHAR* kBstrNotNullText =
    OLESTR("The BSTR parameter '%s' passed to the function '%s' is not NULL, memory leaks may occur.");
inline constexpr const OLECHAR* kNoTransactionText =
    OLESTR("A transaction has not been started! Please use StartTransaction before attempting to access data.");
inline constexpr const OLECHAR* kNegativeText =
    OLESTR("A negative parameter has been passed. Please use positive or zero values.");
inline constexpr const OLECHAR* kInvalidIdText = OLESTR("Invalid property ID passed. Property IDs must be > 0");

/// Completes a usage error whose message is set, with the place and the code 0x80040000 | line, and throws it.
[[noreturn]] void ThrowUsage(CallSite at, LVErrorInfo& error);
/// Text of a string resource for an error message; false, with the sentence that it is missing, when it is.
bool LoadErrorFormat(UINT id, Text& format);

/// Raises a usage error. Messages longer than 1023 units end in three dots and a line end.
template <class... Args>
[[noreturn]] void ThrowFormatted(CallSite at, TextView format, const Args&... args)
{
    LVErrorInfo error;
    FormatMessageText(error.m_szMessage, format, args...);
    ThrowUsage(at, error);
}

/// Raises an error whose text is a string resource of the language library; the code is 0x80040000 | id.
template <class... Args>
[[noreturn]] void ThrowResource(UINT id, const Args&... args)
{
    LVErrorInfo error;
    Text format;
    if (LoadErrorFormat(id, format))
        FormatMessageText(error.m_szMessage, format, args...);
    else
        FormatMessageText(error.m_szMessage, format, id);
    error.m_hr = kUsageErrorBase | static_cast<HRESULT>(id);
    throw error;
}

/// Raises an internal error: the text names the file, the line and the system's text of the last error.
/// @param source  name to report in place of the file's own; null takes that of the call site.
[[noreturn]] void ThrowInternal(CallSite at = CallSite::current(), const char* source = nullptr);

/// Raises the code of a nested call with the description that the callee left on the thread.
[[noreturn]] void ThrowHResult(HRESULT hr);

/// Tests a nested call where it is made.
inline void Must(HRESULT hr)
{
    if (FAILED(hr))
        ThrowHResult(hr);
}

/// A new BSTR; raises E_OUTOFMEMORY when there is no memory for it.
BSTR NewBstr(TextView text);
